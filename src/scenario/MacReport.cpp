#include "scenario/MacReport.h"

#include "adapters/sim/SimMac.h"
#include "platform/StatusBar.h"

#include <nlohmann/json.hpp>

namespace larkspan::sim {

namespace {

using nlohmann::json;

json frame(const Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

json displays(const World& world) {
    json list = json::array();
    for (const Screen& screen : world.screens()) {
        const Display& display = world.displays[list.size()];
        list.push_back({{"id", display.id},
                        {"frame", frame(screen.frame)},
                        {"visibleFrame", frame(screen.visibleFrame)},
                        {"spaces", display.spaces.size()},
                        {"space", display.current},
                        {"fullScreen", display.shown().type == 4}});
    }
    return list;
}

json apps(const World& world) {
    json list = json::array();
    for (const App& app : world.apps) {
        list.push_back({{"id", app.bundleIdentifier ? json(*app.bundleIdentifier) : json(nullptr)},
                        {"name", app.name},
                        {"pid", app.pid},
                        {"hidden", app.hidden},
                        {"front", app.pid == world.frontmost},
                        {"launched", app.finishedLaunching},
                        {"badge", app.badge}});
    }
    return list;
}

json windows(const World& world) {
    json list = json::array();
    for (const Window& window : world.windows) {
        const App* owner = world.app(window.pid);
        list.push_back({{"title", window.title},
                        {"app", owner ? owner->bundleIdentifier.value_or("") : ""},
                        {"frame", frame(window.frame)},
                        {"minimized", window.minimized},
                        {"onScreen", world.isOnScreen(window)}});
    }
    return list;
}

json dock(const World& world) {
    return {{"tileSize", world.dock.tileSize},
            {"autoHide", world.dock.autoHide},
            {"orientation", world.dock.place.orientation},
            {"pinning", world.dock.place.pinning},
            {"magnification", world.dock.magnification},
            {"strip", world.stripHeight()},
            {"pinned", world.pinned}};
}

json nameOf(const std::optional<Permission>& permission) {
    return permission ? json(permissionName(*permission)) : json(nullptr);
}

json statusBar(const SimMac& mac) {
    json list = json::array();
    for (const StatusItem& item : mac.statusBar.items())
        list.push_back({{"name", item.accessibilityDescription}});
    return list;
}

} // namespace

json macReport(const SimMac& mac) {
    const World& world = mac.world();
    json report{{"displays", displays(world)},
                {"apps", apps(world)},
                {"windows", windows(world)},
                {"dock", dock(world)},
                {"statusBar", statusBar(mac)},
                {"opened", world.opened},
                {"prompt", nameOf(world.privacy.prompt())},
                {"privacyPane", nameOf(world.privacy.pane())},
                {"settings", json::array()}};
    for (const auto& [key, value] : mac.defaults.values())
        report["settings"].push_back(key);
    if (world.trashEntries) report["trash"] = *world.trashEntries;
    return report;
}

} // namespace larkspan::sim
