#include "ui/demo/DemoBarPanels.h"

#include "app/BarMenu.h"
#include "ui/demo/DemoBarPanel.h"

#include <QQuickWindow>

namespace larkspan::ui {

DemoBarPanels::DemoBarPanels(AppController& controller, Views& views, Appearance& appearance,
                             QQuickItem& desktop, sim::SimMac& mac)
    : controller_(controller)
    , views_(views)
    , appearance_(appearance)
    , desktop_(desktop)
    , mac_(mac)
    , actions_(controller.store(), controller.click(), controller.itemMenu(), controller.refresh(),
               controller.trash()) {}

std::unique_ptr<BarPanel> DemoBarPanels::makePanel(const Screen&) {
    BarLook& look = controller_.look();
    auto panel = std::make_unique<DemoBarPanel>(
        views_, desktop_,
        std::make_unique<BarScene>(controller_.store(), look, appearance_, icons_), look);
    BarScene& scene = panel->scene();
    connect(&scene, &BarScene::tileClicked, this,
            [this, bar = panel.get()](int index, ClickModifiers modifiers) {
                // A copy: the click may change the rows.
                const TileRow row = bar->scene().row(index);
                actions_.click(row, bar->tileOnScreen(index), modifiers);
            });
    connect(&scene, &BarScene::menuRequested, this, [this, bar = panel.get()](int index) {
        tileMenu_ = actions_.openMenu(bar->scene().row(index), bar->tileOnScreen(index),
                                      [this, anchor = bar->tileOnDesktop(index)](const Menu& menu) {
                                          openMenu(menu, anchor);
                                      });
    });
    connect(&scene, &BarScene::barMenuRequested, this, [this, bar = panel.get()](double x) {
        tileMenu_.reset();
        openMenu(barMenu(controller_), bar->placeOnDesktop(x));
    });
    connect(&scene, &BarScene::pointerInsideChanged, this,
            [this, bar = panel.get()](bool isInside) { movePointer(*bar, isInside); });
    return panel;
}

void DemoBarPanels::movePointer(const BarPanel& bar, bool isInside) {
    const Rect frame = bar.barFrame();
    const double height = isInside ? frame.height / 2 : frame.height * 2;
    mac_.movePointer({frame.x + frame.width / 2, frame.y + height});
    actions_.setPointerOnBar(isInside, false);
}

void DemoBarPanels::openMenu(const Menu& menu, const QRectF& anchor) {
    if (menu.empty() || !desktop_.window()) return;
    if (!menu_) {
        menu_ = std::make_unique<MenuWindow>(views_, appearance_);
        connect(menu_.get(), &MenuWindow::closed, this, [this] { tileMenu_.reset(); });
    }
    const QPointF corner = desktop_.window()->position();
    menu_->open(menu, desktop_.mapRectToScene(anchor).translated(corner),
                QRectF(corner, desktop_.window()->size()), false);
}

} // namespace larkspan::ui
