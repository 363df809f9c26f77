#include "ui/bar/PopupWindows.h"

#include <utility>

namespace larkspan::ui {

PopupWindows::PopupWindows(Views& views, Appearance& appearance, Locate locate)
    : views_(views)
    , appearance_(appearance)
    , locate_(std::move(locate)) {}

void PopupWindows::showLabel(const std::string& text, const Rect& anchor, const Screen& screen) {
    if (!label_) label_ = std::make_unique<LabelWindow>(views_, appearance_);
    const Place place = locate_(anchor, screen);
    label_->showAbove(QString::fromStdString(text), place.anchor, place.screen,
                      place.isTranslucent);
}

void PopupWindows::hideLabel() {
    if (label_) label_->hide();
}

void PopupWindows::openMenu(const Menu& menu, const Rect& anchor, const Screen& screen,
                            bool lightsFirst) {
    if (!menu_) makeMenu();
    const Place place = locate_(anchor, screen);
    menu_->open(menu, place.anchor, place.screen, place.isTranslucent);
    if (lightsFirst && menu_->current() < 0) menu_->lightFirst();
}

void PopupWindows::closeMenu() {
    if (menu_) menu_->hide();
}

void PopupWindows::makeMenu() {
    menu_ = std::make_unique<MenuWindow>(views_, appearance_);
    connect(menu_.get(), &MenuWindow::chosen, this, [this] {
        if (onMenuChosen) onMenuChosen();
    });
    connect(menu_.get(), &MenuWindow::closed, this, [this] {
        if (onMenuClosed) onMenuClosed();
        Q_EMIT menuClosed();
    });
}

} // namespace larkspan::ui
