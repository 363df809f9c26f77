#include "ui/demo/DemoBarPanels.h"

#include "ui/demo/DemoBarPanel.h"

#include <QQuickWindow>

namespace larkspan::ui {

DemoBarPanels::DemoBarPanels(BarLook& look, Views& views, Appearance& appearance,
                             QQuickItem& desktop, sim::SimMac& mac)
    : look_(look)
    , views_(views)
    , appearance_(appearance)
    , desktop_(desktop)
    , mac_(mac)
    , popups_(views, appearance,
              [this](const Rect& anchor, const Screen& screen) { return locate(anchor, screen); }) {
}

std::unique_ptr<BarPanel> DemoBarPanels::makePanel(const Screen&, BarInteraction& bar) {
    auto model = std::make_unique<BarViewModel>(bar, look_, appearance_, icons_);
    QObject::connect(model.get(), &BarViewModel::pointerInsideChanged, [this, &bar](bool isInside) {
        const Rect frame = bar.frame();
        const double height = isInside ? frame.height / 2 : frame.height * 2;
        mac_.movePointer({frame.x + frame.width / 2, frame.y + height});
    });
    return std::make_unique<DemoBarPanel>(views_, desktop_, std::move(model), look_);
}

/// The desktop is drawn smaller than it is, in a window of the real one.
PopupWindows::Place DemoBarPanels::locate(const Rect& anchor, const Screen& screen) const {
    const QRectF onDesktop(screen.bounds.x + anchor.x - screen.frame.x,
                           screen.bounds.maxY() - (anchor.maxY() - screen.frame.y), anchor.width,
                           anchor.height);
    const QQuickWindow* window = desktop_.window();
    const QPointF corner = window->position();
    return {desktop_.mapRectToScene(onDesktop).translated(corner), QRectF(corner, window->size()),
            false};
}

} // namespace larkspan::ui
