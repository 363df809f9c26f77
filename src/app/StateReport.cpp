#include "app/StateReport.h"

#include "app/AppController.h"
#include "app/NamedSettings.h"
#include "app/RawValues.h"

#include <algorithm>
#include <nlohmann/json.hpp>

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

json barsJson(const BarController* bars) {
    json list = json::array();
    if (!bars) return list;
    for (const auto& bar : bars->bars())
        list.push_back({{"display", bar.screen.display},
                        {"frame", frameJson(bar.panel->barFrame())},
                        {"shown", bar.isShown}});
    return list;
}

std::ptrdiff_t windowCount(const DockStore& store, ProcessId pid) {
    return std::count_if(store.latestWindows.begin(), store.latestWindows.end(),
                         [&](const WindowInfo& window) { return window.pid == pid; });
}

json itemJson(const DockStore& store, const DockItem& item) {
    json object{{"id", item.id},
                {"name", item.name},
                {"running", item.app.has_value()},
                {"pinned", item.isPinned},
                {"launching", store.launchingIDs->contains(item.id)},
                {"pid", nullptr},
                {"windows", 0},
                {"hidden", false}};
    if (item.app) {
        object["pid"] = item.app->pid;
        object["windows"] = windowCount(store, item.app->pid);
        object["hidden"] = item.app->isHidden;
    }
    return object;
}

json itemsJson(const DockStore& store, const std::vector<DockItem>& items) {
    json list = json::array();
    for (const auto& item : items)
        list.push_back(itemJson(store, item));
    return list;
}

json groupsJson(const DockStore& store) {
    json list = json::array();
    for (const auto& group : *store.windowAppGroups)
        list.push_back({{"display", orNull(group.display)},
                        {"space", orNull(group.slot.space)},
                        {"ring", group.isRing},
                        {"items", itemsJson(store, group.items)}});
    return list;
}

json frontmostJson(const DockStore& store) {
    const auto pid = *store.frontmostPID;
    if (!pid) return nullptr;
    json object{{"pid", *pid}, {"id", nullptr}};
    const auto take = [&](const std::vector<DockItem>& items) {
        for (const auto& item : items)
            if (item.app && item.app->pid == *pid) object["id"] = item.id;
    };
    take(*store.pinnedItems);
    take(*store.backgroundItems);
    for (const auto& group : *store.windowAppGroups)
        take(group.items);
    return object;
}

json permissionsJson(AppController& controller) {
    const auto& platform = controller.platform();
    return {{"accessibility", platform.accessibility.isProcessTrusted()},
            {"screenRecording", platform.screenCapture.preflightAccess()}};
}

} // namespace

json stateReport(AppController& controller) {
    const auto& store = controller.store();
    const auto* bars = controller.bars();
    return {{"mode", rawValue(controller.mode())},
            {"settings", allSettings(controller)},
            {"permissions", permissionsJson(controller)},
            {"bars", barsJson(bars)},
            {"warning", bars ? orNull(bars->warning()) : json(nullptr)},
            {"pinned", itemsJson(store, *store.pinnedItems)},
            {"groups", groupsJson(store)},
            {"background", itemsJson(store, *store.backgroundItems)},
            {"frontmost", frontmostJson(store)},
            {"trashEmpty", *store.isTrashEmpty}};
}

} // namespace larkspan
