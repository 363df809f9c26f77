#include "spaces/SlotWindows.h"

#include "spaces/WindowPresence.h"
#include "spaces/WindowReader.h"

namespace larkspan {

std::vector<AppWindow> windowsInSlot(std::vector<AppWindow> windows, const Slot& slot,
                                     const std::optional<SpaceMap>& map,
                                     const std::vector<Screen>& screens) {
    const SpaceMap none;
    const SpaceMap& spaces = map ? *map : none;
    std::erase_if(windows, [&](const AppWindow& window) {
        const auto display = WindowPresence::displayOf(window.frame, screens);
        if (window.isMinimized && !spaces.windowSpaces.contains(window.id))
            return display && *display != slot.display;
        const WindowInfo info{.id = window.id, .bounds = window.frame, .isOnScreen = true};
        return !slotsOf(info, display, spaces).contains(slot);
    });
    return windows;
}

} // namespace larkspan
