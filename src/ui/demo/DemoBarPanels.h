#pragma once

#include "adapters/sim/SimMac.h"
#include "app/AppController.h"
#include "bar/BarPanel.h"
#include "ui/bar/BarScene.h"
#include "ui/bar/TileActions.h"
#include "ui/menu/MenuWindow.h"
#include "ui/parts/Views.h"

#include <QObject>
#include <QQuickItem>

#include <memory>

namespace larkspan::ui {

/// Puts the bars over the simulated desktop: the same view as on a real one, inside another window.
class DemoBarPanels final : public QObject, public BarPanels {
    Q_OBJECT

  public:
    /// The bars become children of `desktop`. The pointer of `mac` goes onto a bar and away again
    /// with the real one.
    DemoBarPanels(AppController& controller, Views& views, Appearance& appearance,
                  QQuickItem& desktop, sim::SimMac& mac);

    std::unique_ptr<BarPanel> makePanel(const Screen& screen) override;

  private:
    void movePointer(const BarPanel& bar, bool isInside);
    void openMenu(const Menu& menu, const QRectF& anchor);

    AppController& controller_;
    Views& views_;
    Appearance& appearance_;
    QQuickItem& desktop_;
    sim::SimMac& mac_;
    TileActions actions_;
    IconCache icons_;
    std::unique_ptr<MenuWindow> menu_;
    Handle tileMenu_;
};

} // namespace larkspan::ui
