#pragma once

#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "spaces/FullScreenState.h"
#include "spaces/Slot.h"
#include "spaces/SpaceMap.h"
#include "spaces/WindowInfo.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace larkspan {

/// One full read of the windows, with the derived values that grouping needs. A window counts for
/// its app while it is on screen, or would be if its Space were shown: a window on a Space that no
/// display shows counts; a minimised one or one of a hidden app does not.
struct WindowRead {
    /// The sorted numbers of everything that the window server lists, with menus and panels. Absent
    /// if changes are announced, and if the server cannot return them.
    std::optional<std::vector<WindowId>> ids;
    /// The windows that count, front to back.
    std::vector<WindowInfo> windows;
    FullScreenState fullScreen;
    /// For each display, the process of the front window.
    std::map<DisplayId, ProcessId> frontDisplays;
    /// For each display, the shown Space.
    std::map<DisplayId, SpaceId> frontSpaces;
    /// Absent if the window server does not report Spaces.
    std::optional<SpaceMap> spaceMap;
    /// For the apps with windows that count: the processes, the displays, the slots.
    std::set<ProcessId> windowPIDs;
    std::map<ProcessId, std::set<DisplayId>> windowDisplays;
    std::map<ProcessId, std::set<Slot>> windowSlots;
    /// All windows of the apps that have some on a Space that is not shown: Accessibility does not
    /// list those. Always empty on a platform that reads at once, where it lists every window.
    std::vector<WindowInfo> unconfirmed;

    /// The windows on screen among `windows`, front to back.
    std::vector<WindowInfo> front() const;
};

/// An earlier read, to find out cheaply whether anything has changed since.
struct ReadBase {
    std::optional<std::vector<WindowId>> ids;
    /// The windows on screen, front to back.
    std::vector<WindowInfo> front;
};

/// Reads the windows and the Spaces from the window server. Any thread; the screens are those at
/// the time of the request.
class WindowReader {
  public:
    explicit WindowReader(const WindowServer& server)
        : server_(server) {}

    /// Absent if the window server returned no list. Windows in `closed` that are not on screen do
    /// not count.
    std::optional<WindowRead> read(const std::vector<Screen>& screens,
                                   const std::set<WindowId>& closed = {}) const;

    /// The same, but also absent if the windows have not changed since an earlier read, which is
    /// cheaper to find out. Misses changes of titles and frames on Spaces that are not shown.
    std::optional<WindowRead> readUnlessSame(const ReadBase& base,
                                             const std::vector<Screen>& screens,
                                             const std::set<WindowId>& closed = {}) const;

  private:
    std::optional<std::vector<WindowId>> ids() const;

    const WindowServer& server_;
};

/// The slots in which a window counts; none for a window that does not count. `display` is the one
/// that shows most of it, if any. A window is in those of its Spaces that belong to its display. If
/// none does, because it is across the edge of another display, it is where its Spaces are. A
/// window on screen whose Space is unknown is in the Space that its display shows, or in the whole
/// display if there is no Space map.
std::set<Slot> slotsOf(const WindowInfo& window, std::optional<DisplayId> display,
                       const SpaceMap& map);

} // namespace larkspan
