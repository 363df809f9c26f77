#pragma once

#include "adapters/sim/SimMac.h"
#include "bar/BarPanel.h"
#include "settings/BarLook.h"
#include "ui/bar/PopupWindows.h"
#include "ui/parts/IconCache.h"
#include "ui/parts/Views.h"

#include <QQuickItem>

#include <memory>

namespace larkspan::ui {

/// Puts the bars over the simulated desktop: the same view as on a real one, inside another window.
class DemoBarPanels final : public BarPanels {
  public:
    /// The bars become children of `desktop`. The pointer of `mac` goes onto a bar and away again
    /// with the real one.
    DemoBarPanels(BarLook& look, Views& views, Appearance& appearance, QQuickItem& desktop,
                  sim::SimMac& mac);

    std::unique_ptr<BarPanel> makePanel(const Screen& screen, BarInteraction& bar) override;
    BarPopups& popups() override { return popups_; }

  private:
    PopupWindows::Place locate(const Rect& anchor, const Screen& screen) const;

    BarLook& look_;
    Views& views_;
    Appearance& appearance_;
    QQuickItem& desktop_;
    sim::SimMac& mac_;
    IconCache icons_;
    PopupWindows popups_;
};

} // namespace larkspan::ui
