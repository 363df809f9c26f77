#pragma once

#include "bar/BarPanel.h"

namespace larkspan::sim {

/// Bars without a picture: each takes the whole width of its screen.
class SimBarPanels final : public BarPanels {
  public:
    std::unique_ptr<BarPanel> makePanel(const Screen& screen) override;
};

} // namespace larkspan::sim
