#pragma once

#include "bar/BarPanel.h"
#include "scenario/SimBarPanels.h"

#include <vector>

namespace larkspan::soak {

/// Panels without a picture, for inspection.
class LivePanels : public BarPanels {
  public:
    struct Panel {
        DisplayId display = 0;
        Rect frame;
        bool isShown = false;
        const BarInteraction* bar = nullptr;
    };

    /// Panels add themselves to the list, and remove themselves when they are destroyed.
    explicit LivePanels(std::vector<const Panel*>& alive)
        : alive_(alive) {}
    std::unique_ptr<BarPanel> makePanel(const Screen& screen, BarInteraction& bar) override;
    BarPopups& popups() override { return popups_; }

  private:
    std::vector<const Panel*>& alive_;
    sim::UnseenPopups popups_;
};

} // namespace larkspan::soak
