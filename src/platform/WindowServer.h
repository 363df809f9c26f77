#pragma once

#include "platform/Geometry.h"
#include "platform/Handle.h"
#include "platform/Identifiers.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace larkspan {

/// One entry of the window server's window list. Any field may be missing.
struct WindowListEntry {
    std::optional<int> layer;
    std::optional<ProcessId> ownerPID;
    std::optional<double> alpha;
    /// Display coordinates (y downwards).
    std::optional<Rect> bounds;
    std::optional<WindowId> number;
    std::optional<bool> isOnScreen;
    std::optional<std::string> name;

    bool operator==(const WindowListEntry&) const = default;
};

/// The bits of the window list's option, with the platform's values.
namespace WindowListOption {
inline constexpr std::uint32_t all = 0;
inline constexpr std::uint32_t onScreenOnly = 1;
inline constexpr std::uint32_t excludeDesktopElements = 16;
} // namespace WindowListOption

/// A Space in the window server's description of its displays. Any field may be missing.
struct ManagedSpace {
    std::optional<SpaceId> id64;
    /// 0 a desktop, 4 a full-screen Space.
    std::optional<int> type;
    /// Empty for the first desktop.
    std::optional<std::string> uuid;

    bool operator==(const ManagedSpace&) const = default;
};

struct ManagedDisplay {
    /// The display's UUID, or "Main" if the displays share their Spaces.
    std::optional<std::string> displayIdentifier;
    std::optional<ManagedSpace> currentSpace;
    std::vector<ManagedSpace> spaces;

    bool operator==(const ManagedDisplay&) const = default;
};

/// What the adapter's window server can do besides reads.
struct WindowServerAbilities {
    /// Every change of the window list or the Spaces is announced to subscribers, so that nothing
    /// needs to be polled.
    bool announcesChanges = false;
    /// The adapter keeps the list itself: a read calls no other process and may be done on the main
    /// thread.
    bool readsAtOnce = false;
};

/// The window server. Reads are allowed on any thread, everything else on the main thread only; an
/// absent result means that the call failed or does not exist on this system.
class WindowServer {
  public:
    virtual ~WindowServer() = default;

    virtual WindowServerAbilities abilities() const = 0;
    /// The windows front to back.
    virtual std::optional<std::vector<WindowListEntry>> windowList(std::uint32_t option) const = 0;
    /// The numbers of the windows that `windowList` returns with that option, in the same order, at
    /// a fraction of the cost.
    virtual std::optional<std::vector<WindowId>> windowNumbers(std::uint32_t option) const = 0;
    virtual std::optional<std::vector<ManagedDisplay>> managedDisplaySpaces() const = 0;
    /// The numbers of the windows on a Space; a window on all Spaces is on each of them, a
    /// minimised or hidden one on none.
    virtual std::optional<std::vector<WindowId>> windowsOfSpace(SpaceId space) const = 0;
    /// Requests that the windows be moved to the Space; returns false if the request could not be
    /// sent. The caller must read back whether and when they move.
    virtual bool moveWindows(const std::vector<WindowId>& windows, SpaceId space) = 0;
    /// Announces changes on the main thread; never called without the ability `announcesChanges`.
    virtual Handle subscribe(std::function<void()> callback) = 0;
};

} // namespace larkspan
