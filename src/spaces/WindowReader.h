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

/// One full read of the windows, with what grouping needs derived from it.
///
/// A window counts for its app while it is on screen, or would be if its Space were shown: a window
/// on a Space that no display shows counts, a minimised one or one of a hidden app does not.
struct WindowRead {
    /// Sorted numbers of all that the window server lists, menus and panels too. Absent where
    /// changes are announced, and when the server cannot tell.
    std::optional<std::vector<WindowId>> ids;
    /// The windows that count, front to back.
    std::vector<WindowInfo> windows;
    FullScreenState fullScreen;
    /// Per display, the process whose window is in front there.
    std::map<DisplayId, ProcessId> frontDisplays;
    /// Per display, the Space shown there.
    std::map<DisplayId, SpaceId> frontSpaces;
    /// Absent when the window server does not tell of Spaces.
    std::optional<SpaceMap> spaceMap;
    /// Per app with windows that count: the process, the displays, the slots.
    std::set<ProcessId> windowPIDs;
    std::map<ProcessId, std::set<DisplayId>> windowDisplays;
    std::map<ProcessId, std::set<Slot>> windowSlots;
    /// All windows of the apps that have some on a Space not shown: Accessibility does not list
    /// those. Always empty where the platform reads at once, for there it lists every window.
    std::vector<WindowInfo> unconfirmed;

    /// The windows on screen among `windows`, front to back.
    std::vector<WindowInfo> front() const;
};

/// What a read may be compared with, to learn cheaply that nothing came, went or changed since.
struct ReadBase {
    std::optional<std::vector<WindowId>> ids;
    /// The windows on screen, front to back.
    std::vector<WindowInfo> front;
};

/// Reads the windows and the Spaces from the window server. Any thread; the screens are those of
/// the moment the read was asked for.
class WindowReader {
  public:
    explicit WindowReader(const WindowServer& server)
        : server_(server) {}

    /// Absent when the window server gave no list. Of the windows `closed`, those not on screen do
    /// not count.
    std::optional<WindowRead> read(const std::vector<Screen>& screens,
                                   const std::set<WindowId>& closed = {}) const;

    /// The same, but also absent when the windows are still those of an earlier read, which costs
    /// less to find out. A title or a frame that changed on a Space not shown goes unnoticed.
    std::optional<WindowRead> readUnlessSame(const ReadBase& base,
                                             const std::vector<Screen>& screens,
                                             const std::set<WindowId>& closed = {}) const;

  private:
    std::optional<std::vector<WindowId>> ids() const;

    const WindowServer& server_;
};

/// The slots in which a window counts; none for a window that does not count. `display` is the one
/// that shows most of it, if any does.
///
/// A window is in those of its Spaces that belong to its display. When none does, because it lies
/// across the edge of another display, it is where its Spaces are. A window on screen whose Space
/// is not known is in the Space its display shows, or in the whole display when there is no Space
/// map.
std::set<Slot> slotsOf(const WindowInfo& window, std::optional<DisplayId> display,
                       const SpaceMap& map);

} // namespace larkspan
