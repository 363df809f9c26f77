#include "bar/barTiles.h"

#include <algorithm>
#include <utility>

namespace larkspan {

namespace {

bool hasSeveralDisplays(const std::vector<DisplayGroup>& groups) {
    for (const DisplayGroup& group : groups)
        if (group.slot.display != groups.front().slot.display) return true;
    return false;
}

bool isInFront(const DockStore& store, const DockItem& item, const DisplayGroup& group) {
    if (!item.app || store.frontmostPID().get() != item.app->pid) return false;
    // An app with windows on two displays is in front where its foremost window is.
    const auto front = store.frontDisplays()->find(group.slot.display);
    return !group.isRing &&
           (front == store.frontDisplays()->end() || front->second == item.app->pid);
}

BarTile appTile(const DockStore& store, BarTile::Section section, const DockItem& item,
                std::optional<Slot> slot = std::nullopt) {
    const auto badge = store.badges()->find(item.id);
    return {.section = section,
            .content = AppTile{item, slot},
            .isLaunching = store.launchingIDs()->contains(item.id),
            .wantsAttention = store.attentionIDs()->contains(item.id),
            .badge = badge == store.badges()->end() ? std::string() : badge->second};
}

/// A pinned app that runs without a window is not shown twice: its pinned tile gets the dot.
void addPinned(std::vector<BarTile>& tiles, const DockStore& store) {
    for (const DockItem& item : *store.pinnedItems()) {
        BarTile tile = appTile(store, BarTile::Section::pinned, item);
        const auto& background = *store.backgroundItems();
        if (const auto found = std::ranges::find(background, item.id, &DockItem::id);
            found != background.end()) {
            tile.dot = BarTile::Dot::first;
            tile.isFront = found->app && store.frontmostPID().get() == found->app->pid;
        }
        tiles.push_back(std::move(tile));
    }
}

void addGroups(std::vector<BarTile>& tiles, const DockStore& store, DisplayId display) {
    const auto& groups = *store.windowAppGroups();
    const bool usesBothColors = hasSeveralDisplays(groups);
    for (const DisplayGroup& group : groups) {
        const bool isElsewhere = usesBothColors && group.slot.display != display;
        for (const DockItem& item : group.items) {
            BarTile tile = appTile(store, BarTile::Section::windows, item, group.slot);
            tile.isRing = group.isRing;
            tile.dot = isElsewhere ? BarTile::Dot::gray : BarTile::Dot::first;
            tile.isFront = isInFront(store, item, group);
            tile.fliesIn = store.flyingIn()->contains(item.id);
            tiles.push_back(std::move(tile));
        }
    }
}

} // namespace

std::vector<BarTile> barTiles(const DockStore& store, DisplayId display, bool showsTrash) {
    std::vector<BarTile> tiles;
    addPinned(tiles, store);
    addGroups(tiles, store, display);
    for (const DockItem& item : *store.backgroundItems())
        if (!item.isPinned) tiles.push_back(appTile(store, BarTile::Section::background, item));
    if (showsTrash)
        tiles.push_back(
            {.section = BarTile::Section::trash, .content = TrashTile{*store.isTrashEmpty()}});
    return tiles;
}

int rankOf(const BarTile& tile) {
    if (tile.section != BarTile::Section::windows) return 0;
    return tile.isRing ? 1 : 2;
}

std::map<ProcessId, std::size_t> tilesOfApps(const std::vector<BarTile>& tiles) {
    std::map<ProcessId, std::size_t> places;
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const auto* tile = tiles[i].app();
        if (!tile || !tile->item.app) continue;
        const auto [place, isFirst] = places.try_emplace(tile->item.app->pid, i);
        if (!isFirst && rankOf(tiles[i]) > rankOf(tiles[place->second])) place->second = i;
    }
    return places;
}

} // namespace larkspan
