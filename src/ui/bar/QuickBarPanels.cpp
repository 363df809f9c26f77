#include "ui/bar/QuickBarPanels.h"

#include "app/BarMenu.h"

#include <utility>

namespace larkspan::ui {

QuickBarPanels::QuickBarPanels(AppController& controller, Views& views, Appearance& appearance,
                               PanelDressing& dressing, DesktopPicture& desktop)
    : controller_(controller)
    , views_(views)
    , appearance_(appearance)
    , dressing_(dressing)
    , desktop_(desktop)
    , actions_(controller.store(), controller.click(), controller.itemMenu(), controller.refresh(),
               controller.trash()) {}

std::unique_ptr<BarPanel> QuickBarPanels::makePanel(const Screen&) {
    BarLook& look = controller_.look();
    auto scene = std::make_unique<BarScene>(controller_.store(), look, appearance_, icons_);
    auto panel =
        std::make_unique<QuickBarPanel>(views_, std::move(scene), look, dressing_, desktop_);
    connectPanel(*panel);
    return panel;
}

void QuickBarPanels::connectPanel(QuickBarPanel& panel) {
    BarScene& scene = panel.scene();
    connect(&scene, &BarScene::tileClicked, this,
            [this, &panel](int index, ClickModifiers modifiers) {
                hideLabel();
                // A copy: the click may change the rows.
                const TileRow row = panel.scene().row(index);
                actions_.click(row, panel.tileOnScreen(index), modifiers);
            });
    connect(&scene, &BarScene::menuRequested, this,
            [this, &panel](int index) { openTileMenu(panel, index); });
    connect(&scene, &BarScene::barMenuRequested, this,
            [this, &panel](double x) { openBarMenu(panel, x); });
    connect(&scene, &BarScene::litTileChanged, this, [this, &panel] { updateLabel(panel); });
    connect(&scene, &BarScene::pointerInsideChanged, this, [this](bool isInside) {
        isPointerOnBar_ = isInside;
        tellPointer();
    });
    // A bar that goes from under the pointer does not tell that it left.
    connect(&scene, &QObject::destroyed, this, [this] { isPointerOnBar_ = false; });
}

void QuickBarPanels::tellPointer() {
    actions_.setPointerOnBar(isPointerOnBar_, isMenuOpen_);
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

void QuickBarPanels::openTileMenu(QuickBarPanel& panel, int index) {
    // A copy of the place: the tile may move until the menu is there.
    tileMenu_ = actions_.openMenu(
        panel.scene().row(index), panel.tileOnScreen(index),
        [this, bar = QPointer(&panel), anchor = panel.tileOnDesktop(index)](const Menu& menu) {
            if (bar) openMenu(*bar, menu, anchor);
        });
}

void QuickBarPanels::openBarMenu(QuickBarPanel& panel, double x) {
    tileMenu_.reset();
    const QRectF glass = panel.scene().glass();
    openMenu(panel, barMenu(controller_),
             panel.placeOnDesktop(QRectF(x, glass.top(), 0, glass.height())));
}

void QuickBarPanels::openMenu(QuickBarPanel& panel, const Menu& menu, const QRectF& anchor) {
    hideLabel();
    if (menu.empty()) return;
    if (!menu_) makeMenuWindow();
    menuPanel_ = &panel;
    isMenuOpen_ = true;
    tellPointer();
    menu_->open(menu, anchor, panel.screenOnDesktop(), desktop_.isComposited());
    if (panel.scene().hasKeyboard() && menu_->current() < 0) menu_->lightFirst();
}

void QuickBarPanels::makeMenuWindow() {
    menu_ = std::make_unique<MenuWindow>(views_, appearance_);
    connect(menu_.get(), &MenuWindow::chosen, this, [this] {
        if (menuPanel_) menuPanel_->leaveKeyboard();
    });
    connect(menu_.get(), &MenuWindow::closed, this, [this] {
        isMenuOpen_ = false;
        tileMenu_.reset();
        tellPointer();
        // The menu had the keyboard in the bar's place.
        if (menuPanel_ && menuPanel_->scene().hasKeyboard()) menuPanel_->takeKeyboard();
    });
}

} // namespace larkspan::ui
