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

/// One read of the windows, with what grouping needs derived from it.
struct WindowRead {
    /// Numbers of all windows seen, on every Space.
    std::vector<WindowId> ids;
    /// The windows on screen, front to back.
    std::vector<WindowInfo> windows;
    FullScreenState fullScreen;
    std::map<DisplayId, ProcessId> frontDisplays;
    std::map<DisplayId, SpaceId> frontSpaces;
    std::optional<SpaceMap> spaceMap;
    std::set<ProcessId> windowPIDs;
    std::map<ProcessId, std::set<DisplayId>> windowDisplays;
    std::map<ProcessId, std::set<Slot>> windowSlots;
};

/// Reads the windows and the Spaces from the window server. Any thread; the screens are those of
/// the moment the read was asked for.
class WindowReader {
  public:
    explicit WindowReader(const WindowServer& server)
        : server_(server) {}

    /// Absent when the window server gave no list.
    std::optional<WindowRead> read(const std::vector<Screen>& screens) const;

  private:
    const WindowServer& server_;
};

} // namespace larkspan
