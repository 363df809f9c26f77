#pragma once

#include "bar/BarPanel.h"
#include "platform/Panels.h"
#include "ui/Appearance.h"
#include "ui/IconCache.h"
#include "ui/LabelWindow.h"
#include "ui/MenuWindow.h"
#include "ui/QuickBarPanel.h"
#include "ui/TileActions.h"
#include "ui/Views.h"

#include <QObject>

#include <memory>

namespace larkspan::ui {

/// The bars as Qt Quick draws them. Must outlive the panels it makes. Main thread only.
class QuickBarPanels final : public QObject, public BarPanels {
    Q_OBJECT

  public:
    QuickBarPanels(DockStore& store, BarLook& look, IconClick& click, const ItemMenu& menu,
                   WindowRefresh& refresh, TrashFolder& trash, PanelDressing& dressing,
                   DesktopPicture& desktop);

    std::unique_ptr<BarPanel> makePanel(const Screen& screen) override;
    Appearance& appearance() { return appearance_; }

  private:
    void connectPanel(QuickBarPanel& panel);
    void updateLabel(QuickBarPanel& panel);
    void openMenu(QuickBarPanel& panel, int index);
    void setPointer(bool isOnBar);
    void hideLabel();

    DockStore& store_;
    BarLook& look_;
    PanelDressing& dressing_;
    DesktopPicture& desktop_;
    TileActions actions_;
    Appearance appearance_;
    IconCache icons_;
    Views views_;
    /// Made when they are first needed: most starts never show them.
    std::unique_ptr<LabelWindow> label_;
    std::unique_ptr<MenuWindow> menu_;
    bool isMenuOpen_ = false;
    bool isPointerOnBar_ = false;
};

} // namespace larkspan::ui
