#include "spaces/SpaceMapReader.h"

#include <algorithm>
#include <utility>

namespace larkspan {

namespace {

constexpr int desktopSpaceType = 0;

/// The screens that show the managed display's Spaces.
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
        if (space.type == desktopSpaceType) map.firstDesktops.try_emplace(display, *space.id64);
    }
    if (space.type == fullScreenSpaceType) map.fullScreen.insert(*space.id64);
    map.owners.try_emplace(*space.id64, displays.front());
}

void addWindows(SpaceMap& map, const WindowServer& server, SpaceId space) {
    auto windows = server.windowsOfSpace(space);
    if (!windows) return;
    for (const auto window : *windows) {
        auto& spaces = map.windowSpaces[window];
        if (spaces.empty() || spaces.back() != space) spaces.push_back(space);
    }
    map.windows[space] = *std::move(windows);
}

/// Those with an identifier, sorted: the window server's order changes from call to call.
std::vector<const ManagedDisplay*> inOrder(const std::vector<ManagedDisplay>& displays) {
    std::vector<const ManagedDisplay*> ordered;
    for (const auto& display : displays)
        if (display.displayIdentifier) ordered.push_back(&display);
    std::ranges::stable_sort(ordered, {}, [](const ManagedDisplay* display) -> const std::string& {
        return *display->displayIdentifier;
    });
    return ordered;
}

} // namespace

SpaceMap readSpaceMap(const WindowServer& server, const std::vector<ManagedDisplay>& displays,
                      const std::vector<Screen>& screens) {
    SpaceMap map;
    for (const auto* display : inOrder(displays)) {
        const auto ids = displaysNamed(*display->displayIdentifier, screens);
        if (ids.empty()) continue;
        for (const auto& space : display->spaces) {
            if (space.id64.value_or(0) == 0 || map.owners.contains(*space.id64)) continue;
            addSpace(map, space, ids);
            addWindows(map, server, *space.id64);
        }
        const auto& current = display->currentSpace;
        if (current && current->id64 && map.owners.contains(*current->id64))
            map.shown.insert(*current->id64);
    }
    return map;
}

} // namespace larkspan
