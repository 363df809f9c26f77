#include "ui/bar/QuickBarPanels.h"

#include "ui/bar/QuickBarPanel.h"

namespace larkspan::ui {

QuickBarPanels::QuickBarPanels(BarLook& look, Views& views, Appearance& appearance,
                               PanelDressing& dressing, DesktopPicture& desktop)
    : look_(look)
    , views_(views)
    , appearance_(appearance)
    , dressing_(dressing)
    , desktop_(desktop)
    , popups_(views, appearance, [this](const Rect& anchor, const Screen& screen) {
        const QRectF area = desktopArea(screen);
        // From the bottom left of the screen, as the panels are placed.
        const QRectF place(area.left() + anchor.x - screen.frame.x,
                           area.bottom() - (anchor.maxY() - screen.frame.y), anchor.width,
                           anchor.height);
        return PopupWindows::Place{place, area, desktop_.isComposited()};
    }) {}

std::unique_ptr<BarPanel> QuickBarPanels::makePanel(const Screen&, BarInteraction& bar) {
    auto model = std::make_unique<BarViewModel>(bar, look_, appearance_, icons_);
    auto panel =
        std::make_unique<QuickBarPanel>(views_, std::move(model), look_, dressing_, desktop_);
    // The menu had the keyboard in the bar's place.
    QObject::connect(&popups_, &PopupWindows::menuClosed, panel.get(),
                     &QuickBarPanel::keepKeyboard);
    return panel;
}

} // namespace larkspan::ui
