#include "spaces/SpaceMapReader.h"

#include <utility>

namespace larkspan {

namespace {

constexpr int desktopSpaceType = 0;

/// The screens on which the managed display's Spaces are seen.
std::vector<DisplayId> displaysNamed(const std::string& identifier,
                                     const std::vector<Screen>& screens) {
    std::vector<DisplayId> displays;
    for (const auto& screen : screens) {
        if (identifier == sharedSpacesIdentifier || identifier == screen.displayIdentifier)
            displays.push_back(screen.display);
    }
    return displays;
}

void addSpace(SpaceMap& map, const ManagedSpace& space, const std::vector<DisplayId>& displays) {
    for (const auto display : displays) {
        map.spaces[display].push_back(*space.id64);
        if (space.type.value_or(desktopSpaceType) == desktopSpaceType)
            map.firstDesktops.try_emplace(display, *space.id64);
    }
    if (space.type == fullScreenSpaceType) map.fullScreen.insert(*space.id64);
    map.owners.try_emplace(*space.id64, displays.front());
}

void addWindows(SpaceMap& map, const WindowServer& server, SpaceId space) {
    auto windows = server.windowsOfSpace(space);
    if (!windows) return;
    for (const auto window : *windows)
        map.windowSpaces[window].push_back(space);
    map.windows[space] = *std::move(windows);
}

} // namespace

SpaceMap readSpaceMap(const WindowServer& server, const std::vector<ManagedDisplay>& displays,
                      const std::vector<Screen>& screens) {
    SpaceMap map;
    for (const auto& display : displays) {
        if (!display.displayIdentifier) continue;
        const auto ids = displaysNamed(*display.displayIdentifier, screens);
        if (ids.empty()) continue;
        for (const auto& space : display.spaces) {
            if (!space.id64 || map.owners.contains(*space.id64)) continue;
            addSpace(map, space, ids);
            addWindows(map, server, *space.id64);
        }
        if (display.currentSpace && display.currentSpace->id64)
            map.shown.insert(*display.currentSpace->id64);
    }
    return map;
}

} // namespace larkspan
