#include "bar/BarOverlay.h"

#include <utility>

namespace larkspan {

BarOverlay::BarOverlay(TileActions& actions, WindowRefresh& refresh, BarPopups& popups,
                       std::function<Menu()> barMenu)
    : actions_(actions)
    , refresh_(refresh)
    , popups_(popups)
    , barMenu_(std::move(barMenu)) {
    popups_.onMenuChosen = [this] { menuChosen.emit(); };
    popups_.onMenuClosed = [this] { menuClosed(); };
}

BarOverlay::~BarOverlay() {
    popups_.onMenuChosen = {};
    popups_.onMenuClosed = {};
}

void BarOverlay::setPointer(const BarInteraction& bar, bool isOnBar) {
    // The next bar may tell that the pointer has come before this one tells that it has gone.
    if (isOnBar)
        pointerBar_ = &bar;
    else if (pointerBar_ == &bar)
        pointerBar_ = nullptr;
    hold();
}

void BarOverlay::setKeyboard(const BarInteraction& bar, bool hasKeyboard) {
    if (hasKeyboard)
        keyboardBar_ = &bar;
    else if (keyboardBar_ == &bar)
        keyboardBar_ = nullptr;
    hold();
}

void BarOverlay::leave(const BarInteraction& bar) {
    hideLabel(bar);
    if (menuBar_ == &bar) closeMenu();
    if (pointerBar_ == &bar) setPointer(bar, false);
    if (keyboardBar_ == &bar) setKeyboard(bar, false);
}

void BarOverlay::hold() {
    refresh_.setPointerOnBar(pointerBar_ != nullptr, isMenuOpen_ || keyboardBar_ != nullptr);
}

void BarOverlay::showLabel(const BarInteraction& bar, const std::string& text, const Rect& anchor,
                           const Screen& screen) {
    if (isMenuOpen_) return;
    if (labelBar_ == &bar && label_ == text && labelAnchor_ == anchor) return;
    labelBar_ = &bar;
    label_ = text;
    labelAnchor_ = anchor;
    popups_.showLabel(text, anchor, screen);
}

void BarOverlay::hideLabel(const BarInteraction& bar) {
    if (labelBar_ == &bar) hideAnyLabel();
}

void BarOverlay::hideAnyLabel() {
    if (std::exchange(labelBar_, nullptr)) popups_.hideLabel();
}

std::string BarOverlay::labelOf(const BarInteraction& bar) const {
    return hasLabelOf(bar) ? label_ : std::string();
}

void BarOverlay::click(const BarTile& tile, const Rect& frame, ClickModifiers modifiers) {
    hideAnyLabel();
    actions_.click(tile, frame, modifiers);
}

void BarOverlay::openTileMenu(const BarInteraction& bar, const BarTile& tile, const Rect& frame,
                              const Screen& screen) {
    menuBar_ = &bar;
    tileMenu_ = actions_.openMenu(tile, frame, [this, &bar, frame, screen](const Menu& menu) {
        openMenu(bar, menu, frame, screen);
    });
}

void BarOverlay::openBarMenu(const BarInteraction& bar, const Rect& anchor, const Screen& screen) {
    tileMenu_.reset();
    openMenu(bar, barMenu_(), anchor, screen);
}

void BarOverlay::openMenu(const BarInteraction& bar, const Menu& menu, const Rect& anchor,
                          const Screen& screen) {
    hideAnyLabel();
    if (menu.empty()) return;
    menuBar_ = &bar;
    menu_ = menu;
    isMenuOpen_ = true;
    hold();
    popups_.openMenu(menu, anchor, screen, keyboardBar_ == &bar);
}

void BarOverlay::closeMenu() {
    tileMenu_.reset();
    if (isMenuOpen_) popups_.closeMenu();
}

void BarOverlay::menuClosed() {
    isMenuOpen_ = false;
    menuBar_ = nullptr;
    menu_.clear();
    tileMenu_.reset();
    hold();
}

bool BarOverlay::chooseLine(std::string_view title) {
    const MenuItem* line = findLine(menu_, title);
    if (!line || !line->isEnabled || !line->action) return false;
    // A copy: the lines go with the menu.
    const auto action = line->action;
    menuChosen.emit();
    closeMenu();
    action();
    return true;
}

} // namespace larkspan
