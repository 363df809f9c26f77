#include "ui/QuickBarPanels.h"

#include "ui/DesktopAppearance.h"

#include <QStandardPaths>

namespace larkspan::ui {

QuickBarPanels::QuickBarPanels(DockStore& store, BarLook& look, IconClick& click,
                               const ItemMenu& menu, WindowRefresh& refresh, TrashFolder& trash,
                               PanelDressing& dressing, DesktopPicture& desktop)
    : store_(store)
    , look_(look)
    , dressing_(dressing)
    , desktop_(desktop)
    , actions_(store, click, menu, refresh, trash) {
    appearance_.set(
        desktopAppearance(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)));
}

std::unique_ptr<BarPanel> QuickBarPanels::makePanel(const Screen&) {
    auto scene = std::make_unique<BarScene>(store_, look_, appearance_, icons_);
    auto panel =
        std::make_unique<QuickBarPanel>(views_, std::move(scene), look_, dressing_, desktop_);
    connectPanel(*panel);
    return panel;
}

void QuickBarPanels::connectPanel(QuickBarPanel& panel) {
    BarScene& scene = panel.scene();
    connect(&scene, &BarScene::tileClicked, this, [this, &panel](int index) {
        hideLabel();
        // A copy: the click may change the rows.
        const TileRow row = panel.scene().row(index);
        actions_.click(row, panel.tileOnScreen(index));
    });
    connect(&scene, &BarScene::menuRequested, this,
            [this, &panel](int index) { openMenu(panel, index); });
    connect(&scene, &BarScene::litTileChanged, this, [this, &panel] { updateLabel(panel); });
    connect(&scene, &BarScene::pointerInsideChanged, this, [this](bool isInside) {
        isPointerOnBar_ = isInside;
        setPointer(isInside || isMenuOpen_);
    });
    connect(&scene, &BarScene::keyboardLeft, this, [&panel] {
        panel.scene().setKeyboard(false);
        panel.window().releaseKeyboard();
    });
}

void QuickBarPanels::setPointer(bool isOnBar) {
    actions_.setPointerOnBar(isOnBar);
}

void QuickBarPanels::hideLabel() {
    if (label_) label_->hide();
}

void QuickBarPanels::updateLabel(QuickBarPanel& panel) {
    const int index = panel.scene().litTile();
    if (index < 0 || isMenuOpen_) {
        hideLabel();
        return;
    }
    if (!label_) label_ = std::make_unique<LabelWindow>(views_, appearance_);
    label_->showAbove(QString::fromStdString(panel.scene().row(index).item.name),
                      panel.tileOnDesktop(index), panel.screenOnDesktop(), desktop_.isComposited());
}

void QuickBarPanels::openMenu(QuickBarPanel& panel, int index) {
    hideLabel();
    const Menu menu = actions_.menu(panel.scene().row(index), panel.tileOnScreen(index));
    if (menu.empty()) return;
    if (!menu_) {
        menu_ = std::make_unique<MenuWindow>(views_, appearance_);
        connect(menu_.get(), &MenuWindow::closed, this, [this] {
            isMenuOpen_ = false;
            setPointer(isPointerOnBar_);
        });
    }
    isMenuOpen_ = true;
    setPointer(true);
    menu_->open(menu, panel.tileOnDesktop(index), panel.screenOnDesktop(), desktop_.isComposited());
}

} // namespace larkspan::ui
