#include "ui/demo/DemoBarPanels.h"

#include "ui/demo/DemoBarPanel.h"

#include <QQuickWindow>

namespace larkspan::ui {

DemoBarPanels::DemoBarPanels(AppController& controller, Views& views, QQuickItem& desktop,
                             bool reducesMotion)
    : views_(views)
    , desktop_(desktop)
    , store_(controller.store())
    , look_(controller.look())
    , actions_(controller.store(), controller.click(), controller.itemMenu(), controller.refresh(),
               controller.trash()) {
    appearance_.set({.reducesMotion = reducesMotion});
}

std::unique_ptr<BarPanel> DemoBarPanels::makePanel(const Screen&) {
    auto panel = std::make_unique<DemoBarPanel>(
        views_, desktop_, std::make_unique<BarScene>(store_, look_, appearance_, icons_), look_);
    BarScene& scene = panel->scene();
    connect(&scene, &BarScene::tileClicked, this, [this, bar = panel.get()](int index) {
        // A copy: the click may change the rows.
        const TileRow row = bar->scene().row(index);
        actions_.click(row, bar->tileOnScreen(index));
    });
    connect(&scene, &BarScene::menuRequested, this, [this, bar = panel.get()](int index) {
        openMenu(bar->scene().row(index), bar->tileOnScreen(index), bar->tileOnDesktop(index));
    });
    connect(&scene, &BarScene::pointerInsideChanged, this,
            [this](bool isInside) { actions_.setPointerOnBar(isInside); });
    return panel;
}

void DemoBarPanels::openMenu(const TileRow& row, const Rect& frame, const QRectF& tile) {
    const Menu menu = actions_.menu(row, frame);
    if (menu.empty() || !desktop_.window()) return;
    if (!menu_) menu_ = std::make_unique<MenuWindow>(views_, appearance_);
    const QPointF corner = desktop_.window()->position();
    menu_->open(menu, desktop_.mapRectToScene(tile).translated(corner),
                QRectF(corner, desktop_.window()->size()), false);
}

} // namespace larkspan::ui
