#pragma once

#include "bar/BarPanel.h"
#include "platform/DesktopPicture.h"
#include "platform/PanelDressing.h"
#include "settings/BarLook.h"
#include "ui/bar/PopupWindows.h"
#include "ui/parts/Appearance.h"
#include "ui/parts/IconCache.h"
#include "ui/parts/Views.h"

#include <memory>

namespace larkspan::ui {

/// The bars as Qt Quick draws them. Must outlive the panels it makes. Main thread only.
class QuickBarPanels final : public BarPanels {
  public:
    QuickBarPanels(BarLook& look, Views& views, Appearance& appearance, PanelDressing& dressing,
                   DesktopPicture& desktop);

    std::unique_ptr<BarPanel> makePanel(const Screen& screen, BarInteraction& bar) override;
    BarPopups& popups() override { return popups_; }

  private:
    BarLook& look_;
    Views& views_;
    Appearance& appearance_;
    PanelDressing& dressing_;
    DesktopPicture& desktop_;
    IconCache icons_;
    PopupWindows popups_;
};

} // namespace larkspan::ui
