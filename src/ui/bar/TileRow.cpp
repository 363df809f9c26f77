#include "ui/bar/TileRow.h"

#include "ui/bar/TrashImage.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace larkspan::ui {

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

TileRow plainRow(const DockStore& store, TileRow::Section section, const DockItem& item) {
    const auto badge = store.badges()->find(item.id);
    return {.section = section,
            .item = item,
            .isLaunching = store.launchingIDs()->contains(item.id),
            .wantsAttention = store.attentionIDs()->contains(item.id),
            .badge = badge == store.badges()->end() ? std::string() : badge->second};
}

/// A pinned app that runs without a window is not shown twice: its pinned tile gets the dot.
void addPinned(std::vector<TileRow>& rows, const DockStore& store) {
    for (const DockItem& item : *store.pinnedItems()) {
        TileRow row = plainRow(store, TileRow::Section::pinned, item);
        const auto& background = *store.backgroundItems();
        if (const auto found = std::ranges::find(background, item.id, &DockItem::id);
            found != background.end()) {
            row.dot = TileRow::Dot::first;
            row.isFront = found->app && store.frontmostPID().get() == found->app->pid;
        }
        rows.push_back(std::move(row));
    }
}

void addGroups(std::vector<TileRow>& rows, const DockStore& store, DisplayId display) {
    const auto& groups = *store.windowAppGroups();
    const bool usesBothColors = hasSeveralDisplays(groups);
    for (const DisplayGroup& group : groups) {
        const bool isElsewhere = usesBothColors && group.slot.display != display;
        for (const DockItem& item : group.items) {
            TileRow row = plainRow(store, TileRow::Section::windows, item);
            row.slot = group.slot;
            row.isRing = group.isRing;
            row.dot = isElsewhere ? TileRow::Dot::gray : TileRow::Dot::first;
            row.isFront = isInFront(store, item, group);
            row.fliesIn = store.flyingIn()->contains(item.id);
            rows.push_back(std::move(row));
        }
    }
}

TileRow trashRow(bool isEmpty) {
    DockItem item{.id = trashIdentifier, .name = "Trash"};
    item.icon = std::make_shared<TrashImage>(isEmpty);
    return {.section = TileRow::Section::trash, .item = std::move(item)};
}

} // namespace

std::string TileRow::key() const {
    switch (section) {
    case Section::pinned:
        return "pinned " + item.id;
    case Section::background:
        return "background " + item.id;
    case Section::trash:
        return "trash";
    case Section::windows:
        break;
    }
    const Slot place = slot.value_or(Slot{});
    return fmt::format("windows {} {} {}", place.display, place.space.value_or(0), item.id);
}

std::vector<TileRow> tileRows(const DockStore& store, DisplayId display, bool showsTrash) {
    std::vector<TileRow> rows;
    addPinned(rows, store);
    addGroups(rows, store, display);
    for (const DockItem& item : *store.backgroundItems())
        if (!item.isPinned) rows.push_back(plainRow(store, TileRow::Section::background, item));
    if (showsTrash) rows.push_back(trashRow(*store.isTrashEmpty()));
    return rows;
}

} // namespace larkspan::ui
