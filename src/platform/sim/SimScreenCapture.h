#pragma once

#include "platform/Accessibility.h"
#include "platform/sim/World.h"

namespace larkspan::sim {

class SimScreenCapture final : public ScreenCapture {
  public:
    explicit SimScreenCapture(const World& world)
        : world_(world) {}

    bool preflightAccess() const override { return world_.mayRecordScreen; }
    bool requestAccess() override {
        ++requests_;
        return world_.mayRecordScreen;
    }
    /// How often access was asked for.
    int requests() const { return requests_; }

  private:
    const World& world_;
    int requests_ = 0;
};

} // namespace larkspan::sim
