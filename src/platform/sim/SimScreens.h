#pragma once

#include "platform/sim/World.h"

#include <utility>

namespace larkspan::sim {

class SimScreens final : public Screens {
  public:
    explicit SimScreens(World& world)
        : world_(world) {}

    std::vector<Screen> screens() const override { return world_.screens(); }
    Handle subscribe(std::function<void()> callback) override {
        return world_.screensChanged.subscribe(std::move(callback));
    }

  private:
    World& world_;
};

/// Here the system Dock holds the strip, as on every Mac.
class SimDockStrip final : public DockStrip {
  public:
    void hold(double) override {}
    void release() override {}
};

} // namespace larkspan::sim
