#pragma once

#include "adapters/sim/VirtualScheduler.h"
#include "platform/DisplayLink.h"

#include <utility>

namespace larkspan::sim {

/// Displays that draw sixty frames a second.
class SimDisplayLink final : public DisplayLink {
  public:
    explicit SimDisplayLink(VirtualScheduler& scheduler)
        : scheduler_(scheduler) {}

    Handle start(std::function<void()> frameDrawn) override {
        return scheduler_.every(1.0 / 60, std::move(frameDrawn));
    }

  private:
    VirtualScheduler& scheduler_;
};

} // namespace larkspan::sim
