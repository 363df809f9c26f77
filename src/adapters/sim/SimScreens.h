#pragma once

#include "adapters/sim/world/Displays.h"
#include "adapters/sim/world/World.h"
#include "platform/DockStrip.h"

#include <utility>

namespace larkspan::sim {

class SimScreens final : public Screens {
  public:
    SimScreens(World& world, Displays& displays)
        : world_(world)
        , displays_(displays) {}

    std::vector<Screen> screens() const override {
        auto screens = world_.screens();
        if (const auto next = std::exchange(world_.displaysAfterRead, std::nullopt))
            displays_.set(*next);
        return screens;
    }
    Handle subscribe(std::function<void()> callback) override {
        return world_.screensChanged.subscribe(std::move(callback));
    }

  private:
    World& world_;
    Displays& displays_;
};

/// As on every Mac, the system Dock reserves the strip.
class SimDockStrip final : public DockStrip {
  public:
    void hold(double) override {}
    void release() override {}
};

} // namespace larkspan::sim
