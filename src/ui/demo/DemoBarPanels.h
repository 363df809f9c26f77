#pragma once

#include "app/AppController.h"
#include "bar/BarPanel.h"
#include "ui/BarScene.h"
#include "ui/MenuWindow.h"
#include "ui/TileActions.h"
#include "ui/Views.h"

#include <QObject>
#include <QQuickItem>

#include <memory>

namespace larkspan::ui {

/// Puts the bars over the simulated desktop: the same view as on a real one, inside another window.
class DemoBarPanels final : public QObject, public BarPanels {
    Q_OBJECT

  public:
    /// The bars become children of `desktop`. With `reducesMotion` every picture shows where tiles
    /// end, not where they are on their way.
    DemoBarPanels(AppController& controller, Views& views, QQuickItem& desktop, bool reducesMotion);

    std::unique_ptr<BarPanel> makePanel(const Screen& screen) override;

  private:
    void openMenu(const TileRow& row, const Rect& frame, const QRectF& tile);

    Views& views_;
    QQuickItem& desktop_;
    DockStore& store_;
    BarLook& look_;
    TileActions actions_;
    Appearance appearance_;
    IconCache icons_;
    std::unique_ptr<MenuWindow> menu_;
};

} // namespace larkspan::ui
