#include "bar/TileActions.h"

#include "platform/Overload.h"

#include <algorithm>
#include <utility>

namespace larkspan {

TileActions::TileActions(const DockStore& store, IconClick& click, ItemMenu& menu, Trash trash)
    : store_(store)
    , click_(click)
    , menu_(menu)
    , trash_(std::move(trash)) {}

void TileActions::click(const BarTile& tile, const Rect& frame, ClickModifiers modifiers) {
    std::visit(
        Overload{[&](const AppTile& app) { click_.click(app.item, group(app), frame, modifiers); },
                 [&](const TrashTile&) { trash_.open(); }},
        tile.content);
}

Handle TileActions::openMenu(const BarTile& tile, const Rect& frame, Show show) {
    return std::visit(Overload{[&](const AppTile& app) {
                                   return menu_.open(app.item, group(app), frame, std::move(show));
                               },
                               [&](const TrashTile&) {
                                   show(trash_.menu());
                                   return Handle();
                               }},
                      tile.content);
}

Menu TileActions::menu(const BarTile& tile, const Rect& frame) const {
    return std::visit(
        Overload{[&](const AppTile& app) { return menu_.menu(app.item, group(app), frame); },
                 [&](const TrashTile&) { return trash_.menu(); }},
        tile.content);
}

const DisplayGroup* TileActions::group(const AppTile& tile) const {
    if (!tile.slot) return nullptr;
    const auto& groups = *store_.windowAppGroups();
    const auto found = std::ranges::find(groups, *tile.slot, &DisplayGroup::slot);
    return found == groups.end() ? nullptr : &*found;
}

} // namespace larkspan
