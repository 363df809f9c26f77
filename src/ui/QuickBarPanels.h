#pragma once

#include "bar/BarPanel.h"
#include "platform/Panels.h"
#include "ui/Appearance.h"
#include "ui/AppearanceWatch.h"
#include "ui/IconCache.h"
#include "ui/LabelWindow.h"
#include "ui/MenuWindow.h"
#include "ui/QuickBarPanel.h"
#include "ui/TileActions.h"
#include "ui/Views.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

namespace larkspan::ui {

/// The bars as Qt Quick draws them. Must outlive the panels it makes. Main thread only.
class QuickBarPanels final : public QObject, public BarPanels {
    Q_OBJECT

  public:
    /// `barMenu` makes the menu of the bar itself, anew each time it opens.
    QuickBarPanels(DockStore& store, BarLook& look, IconClick& click, const ItemMenu& menu,
                   WindowRefresh& refresh, TrashFolder& trash, PanelDressing& dressing,
                   DesktopPicture& desktop, std::function<Menu()> barMenu);

    std::unique_ptr<BarPanel> makePanel(const Screen& screen) override;
    Appearance& appearance() { return appearance_; }

  private:
    void connectPanel(QuickBarPanel& panel);
    void updateLabel(QuickBarPanel& panel);
    void openTileMenu(QuickBarPanel& panel, int index);
    void openBarMenu(QuickBarPanel& panel, double x);
    void openMenu(QuickBarPanel& panel, const Menu& menu, const QRectF& anchor);
    void makeMenuWindow();
    void setPointer(bool isOnBar);
    void hideLabel();

    DockStore& store_;
    BarLook& look_;
    PanelDressing& dressing_;
    DesktopPicture& desktop_;
    std::function<Menu()> barMenu_;
    TileActions actions_;
    Appearance appearance_;
    AppearanceWatch appearanceWatch_;
    IconCache icons_;
    Views views_;
    /// Made when they are first needed: most starts never show them.
    std::unique_ptr<LabelWindow> label_;
    std::unique_ptr<MenuWindow> menu_;
    /// The bar whose menu was opened last; bars go with their screens.
    QPointer<QuickBarPanel> menuPanel_;
    bool isMenuOpen_ = false;
    bool isPointerOnBar_ = false;
};

} // namespace larkspan::ui
