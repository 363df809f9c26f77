#include "ui/TileActions.h"

namespace larkspan::ui {

TileActions::TileActions(const DockStore& store, IconClick& click, const ItemMenu& menu,
                         WindowRefresh& refresh, TrashFolder& trash)
    : store_(store)
    , click_(click)
    , menu_(menu)
    , refresh_(refresh)
    , trash_(trash) {}

void TileActions::click(const TileRow& row, const Rect& frame) {
    if (row.section == TileRow::Section::trash)
        trash_.open();
    else
        click_.click(row.item, group(row), frame);
}

Menu TileActions::menu(const TileRow& row, const Rect& frame) const {
    if (row.section == TileRow::Section::trash)
        return {{.title = "Open", .action = [this] { trash_.open(); }}};
    return menu_.menu(row.item, group(row), frame);
}

void TileActions::setPointerOnBar(bool onBar) {
    refresh_.setPointerOnBar(onBar);
}

const DisplayGroup* TileActions::group(const TileRow& row) const {
    if (!row.slot) return nullptr;
    for (const DisplayGroup& group : *store_.windowAppGroups)
        if (group.slot == *row.slot) return &group;
    return nullptr;
}

} // namespace larkspan::ui
