#pragma once

#include "app/AppController.h"
#include "bar/BarPanel.h"
#include "platform/DesktopPicture.h"
#include "platform/PanelDressing.h"
#include "ui/bar/LabelWindow.h"
#include "ui/bar/QuickBarPanel.h"
#include "ui/bar/TileActions.h"
#include "ui/menu/MenuWindow.h"
#include "ui/parts/Appearance.h"
#include "ui/parts/IconCache.h"
#include "ui/parts/Views.h"

#include <QObject>
#include <QPointer>

#include <memory>

namespace larkspan::ui {

/// The bars as Qt Quick draws them. Must outlive the panels it makes. Main thread only.
class QuickBarPanels final : public QObject, public BarPanels {
    Q_OBJECT

  public:
    QuickBarPanels(AppController& controller, Views& views, Appearance& appearance,
                   PanelDressing& dressing, DesktopPicture& desktop);

    std::unique_ptr<BarPanel> makePanel(const Screen& screen) override;

  private:
    void connectPanel(QuickBarPanel& panel);
    void updateLabel(QuickBarPanel& panel);
    void openTileMenu(QuickBarPanel& panel, int index);
    void openBarMenu(QuickBarPanel& panel, double x);
    void openMenu(QuickBarPanel& panel, const Menu& menu, const QRectF& anchor);
    void makeMenuWindow();
    void tellPointer();
    void hideLabel();

    AppController& controller_;
    Views& views_;
    Appearance& appearance_;
    PanelDressing& dressing_;
    DesktopPicture& desktop_;
    TileActions actions_;
    IconCache icons_;
    /// Made when they are first needed: most starts never show them.
    std::unique_ptr<LabelWindow> label_;
    std::unique_ptr<MenuWindow> menu_;
    /// Keeps the menu of a tile true while it is open.
    Handle tileMenu_;
    /// The bar whose menu was opened last; bars go with their screens.
    QPointer<QuickBarPanel> menuPanel_;
    bool isMenuOpen_ = false;
    bool isPointerOnBar_ = false;
};

} // namespace larkspan::ui
