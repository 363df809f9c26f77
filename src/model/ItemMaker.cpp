#include "model/ItemMaker.h"

#include <filesystem>
#include <utility>

namespace larkspan {
namespace {

std::string withoutExtension(std::string name, const std::string& url) {
    const auto extension = std::filesystem::path(url).extension().string();
    if (!extension.empty() && name.size() > extension.size() && name.ends_with(extension))
        name.resize(name.size() - extension.size());
    return name;
}

} // namespace

std::optional<DockItem> ItemMaker::make(std::string id, const RunningApplication* app,
                                        bool isPinned) {
    DockItem item{.id = std::move(id), .isPinned = isPinned};
    item.url = urlOf(item.id, app);
    if (!app && !item.url) return std::nullopt;
    if (app) {
        item.app = *app;
        // `frontmostPID` has the frontmost app, and `icon` the image. Otherwise each activation
        // would make the tile differ from itself.
        item.app->isActive = false;
        item.app->icon = nullptr;
        item.name = app->localizedName;
    }
    if (item.name.empty() && item.url)
        item.name = withoutExtension(workspace_.displayName(*item.url), *item.url);
    item.icon = icon(item, app);
    return item;
}

std::optional<std::string> ItemMaker::urlOf(const std::string& id,
                                            const RunningApplication* app) const {
    if (!app) return workspace_.urlForApplication(id);
    if (app->bundleURL || !app->bundleIdentifier) return app->bundleURL;
    return workspace_.urlForApplication(*app->bundleIdentifier);
}

ImageRef ItemMaker::icon(const DockItem& item, const RunningApplication* app) {
    auto& icon = icons_[item.id];
    if (!icon && item.url) icon = workspace_.icon(*item.url);
    if (!icon && app) icon = app->icon;
    if (!icon) icon = workspace_.genericApplicationIcon();
    return icon;
}

void ItemMaker::keepIcons(const std::set<std::string_view>& ids) {
    std::erase_if(icons_, [&](const auto& entry) { return !ids.contains(entry.first); });
}

} // namespace larkspan
