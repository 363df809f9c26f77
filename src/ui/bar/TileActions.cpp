#include "ui/bar/TileActions.h"

namespace larkspan::ui {

TileActions::TileActions(const DockStore& store, IconClick& click, ItemMenu& menu,
                         WindowRefresh& refresh, TrashFolder& trash)
    : store_(store)
    , click_(click)
    , menu_(menu)
    , refresh_(refresh)
    , trash_(trash) {}

void TileActions::click(const TileRow& row, const Rect& frame, ClickModifiers modifiers) {
    if (row.section == TileRow::Section::trash)
        trash_.open();
    else
        click_.click(row.item, group(row), frame, modifiers);
}

Handle TileActions::openMenu(const TileRow& row, const Rect& frame, ItemMenu::Show show) {
    if (row.section != TileRow::Section::trash)
        return menu_.open(row.item, group(row), frame, std::move(show));
    show({{.title = "Open", .action = [this] { trash_.open(); }}});
    return {};
}

void TileActions::setPointerOnBar(bool onBar, bool isMenuOpen) {
    refresh_.setPointerOnBar(onBar, isMenuOpen);
}

const DisplayGroup* TileActions::group(const TileRow& row) const {
    if (!row.slot) return nullptr;
    for (const DisplayGroup& group : *store_.windowAppGroups())
        if (group.slot == *row.slot) return &group;
    return nullptr;
}

} // namespace larkspan::ui
