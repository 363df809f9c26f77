#include "control/StateReport.h"

#include "app/AppController.h"
#include "control/SettingsReport.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <set>

namespace larkspan {
namespace {

using nlohmann::json;

template <typename T>
json orNull(const std::optional<T>& value) {
    return value ? json(*value) : json(nullptr);
}

json frameJson(const Rect& frame) {
    return {frame.x, frame.y, frame.width, frame.height};
}

json textOrNull(const std::string& text) {
    return text.empty() ? json(nullptr) : json(text);
}

const char* nameOf(BarTile::Section section) {
    switch (section) {
    case BarTile::Section::pinned:
        return "pinned";
    case BarTile::Section::windows:
        return "windows";
    case BarTile::Section::background:
        return "background";
    case BarTile::Section::trash:
        return "trash";
    }
    return "";
}

json dotJson(BarTile::Dot dot) {
    switch (dot) {
    case BarTile::Dot::first:
        return "first";
    case BarTile::Dot::gray:
        return "gray";
    case BarTile::Dot::none:
        break;
    }
    return nullptr;
}

json tileJson(const BarTile& tile, const Rect& frame) {
    const auto slot = tile.slot();
    return {{"id", tile.id()},
            {"name", tile.name()},
            {"section", nameOf(tile.section)},
            {"display", slot ? json(slot->display) : json(nullptr)},
            {"space", slot ? orNull(slot->space) : json(nullptr)},
            {"frame", frameJson(frame)},
            {"dot", dotJson(tile.dot)},
            {"ring", tile.isRing},
            {"front", tile.isFront},
            {"badge", textOrNull(tile.badge)},
            {"launching", tile.isLaunching},
            {"attention", tile.wantsAttention}};
}

json tilesJson(const BarInteraction& bar) {
    json list = json::array();
    for (std::size_t i = 0; i < bar.tiles().size(); ++i)
        list.push_back(tileJson(bar.tiles()[i], bar.frameOfTile(static_cast<int>(i))));
    return list;
}

json barsJson(const BarController* bars) {
    json list = json::array();
    if (!bars) return list;
    for (const auto& bar : bars->bars()) {
        bar.interaction->catchUp();
        list.push_back({{"display", bar.screen.display},
                        {"frame", frameJson(bar.interaction->frame())},
                        {"shown", bar.isShown},
                        {"label", textOrNull(bar.interaction->label())},
                        {"tiles", tilesJson(*bar.interaction)}});
    }
    return list;
}

/// How long an app is waited for that may be hung, in seconds.
constexpr float patience = 0.1F;

struct WindowCounts {
    std::size_t all = 0;
    std::size_t minimized = 0;
};

/// The window list knows the windows of other Spaces, and Accessibility the minimised ones.
WindowCounts countWindows(AppController& controller, ProcessId pid) {
    std::set<WindowId> ids;
    for (const auto& window : controller.store().latestWindows())
        if (window.pid == pid) ids.insert(window.id);
    const auto windows = controller.listedWindows(pid, patience);
    WindowCounts counts;
    for (const auto& window : windows.value_or(std::vector<AppWindow>{})) {
        ids.insert(window.id);
        counts.minimized += window.isMinimized ? 1 : 0;
    }
    counts.all = ids.size();
    return counts;
}

json badgeJson(const DockStore& store, const std::string& id) {
    const auto badge = store.badges()->find(id);
    return badge == store.badges()->end() ? json(nullptr) : json(badge->second);
}

json itemJson(AppController& controller, const DockItem& item) {
    json object{{"id", item.id},
                {"name", item.name},
                {"running", item.app.has_value()},
                {"pinned", item.isPinned},
                {"launching", controller.store().launchingIDs()->contains(item.id)},
                {"badge", badgeJson(controller.store(), item.id)},
                {"attention", controller.store().attentionIDs()->contains(item.id)},
                {"pid", nullptr},
                {"windows", 0},
                {"minimized", 0},
                {"hidden", false}};
    if (item.app) {
        object["pid"] = item.app->pid;
        const auto counts = countWindows(controller, item.app->pid);
        object["windows"] = counts.all;
        object["minimized"] = counts.minimized;
        object["hidden"] = item.app->isHidden;
    }
    return object;
}

json itemsJson(AppController& controller, const std::vector<DockItem>& items) {
    json list = json::array();
    for (const auto& item : items)
        list.push_back(itemJson(controller, item));
    return list;
}

json groupsJson(AppController& controller) {
    json list = json::array();
    for (const auto& group : *controller.store().windowAppGroups())
        list.push_back({{"display", orNull(group.display)},
                        {"space", orNull(group.slot.space)},
                        {"ring", group.isRing},
                        {"items", itemsJson(controller, group.items)}});
    return list;
}

/// The Spaces in the order of their displays, with the windows that count, front to back.
json spacesJson(const DockStore& store) {
    json list = json::array();
    if (!store.spaceMap()) return list;
    const auto& map = *store.spaceMap();
    std::map<SpaceId, json> windows;
    for (const auto& window : store.latestWindows()) {
        const auto spaces = map.windowSpaces.find(window.id);
        if (spaces == map.windowSpaces.end()) continue;
        for (const auto space : spaces->second)
            windows[space].push_back({{"number", window.id}, {"pid", window.pid}});
    }
    for (const auto& [display, spaces] : map.spaces)
        for (const auto space : spaces)
            // Spaces that displays share stand under each of them.
            if (map.owners.at(space) == display)
                list.push_back(
                    {{"id", space},
                     {"display", display},
                     {"shown", map.shown.contains(space)},
                     {"fullScreen", map.fullScreen.contains(space)},
                     {"windows", windows.contains(space) ? windows[space] : json::array()}});
    return list;
}

json frontmostJson(const DockStore& store) {
    const auto pid = *store.frontmostPID();
    if (!pid) return nullptr;
    json object{{"pid", *pid}, {"id", nullptr}};
    const auto take = [&](const std::vector<DockItem>& items) {
        for (const auto& item : items)
            if (item.app && item.app->pid == *pid) object["id"] = item.id;
    };
    take(*store.pinnedItems());
    take(*store.backgroundItems());
    for (const auto& group : *store.windowAppGroups())
        take(group.items);
    return object;
}

/// What the rows of the permissions window say; null while it is not shown.
json permissionsWindowJson(const PermissionsModel& window) {
    if (!*window.isShown) return nullptr;
    return {{"accessibility", *window.hasAccessibility},
            {"screenRecording", *window.hasScreenRecording}};
}

json permissionsJson(AppController& controller) {
    return {{"accessibility", controller.isAccessibilityTrusted()},
            {"screenRecording", controller.canCaptureScreen()},
            {"window", permissionsWindowJson(controller.permissions())}};
}

json lostProcessesJson(const LostProcesses& processes) {
    json list = json::array();
    for (const auto& [pid, since] : processes.table())
        list.push_back({{"pid", pid}, {"since", since}});
    return list;
}

} // namespace

json stateReport(AppController& controller) {
    const auto& store = controller.store();
    const auto* bars = controller.bars();
    return {{"mode", rawValue(controller.mode())},
            {"settings", settingsReport(controller)},
            {"permissions", permissionsJson(controller)},
            {"bars", barsJson(bars)},
            {"warning", bars ? orNull(bars->warning()) : json(nullptr)},
            {"pinned", itemsJson(controller, *store.pinnedItems())},
            {"groups", groupsJson(controller)},
            {"background", itemsJson(controller, *store.backgroundItems())},
            {"spaces", spacesJson(store)},
            {"frontmost", frontmostJson(store)},
            {"lostProcesses", lostProcessesJson(controller.lostProcesses())},
            {"trashEmpty", *store.isTrashEmpty()}};
}

} // namespace larkspan
