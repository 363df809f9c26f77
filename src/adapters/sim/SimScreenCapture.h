#pragma once

#include "adapters/sim/world/World.h"
#include "platform/ScreenCapture.h"

namespace larkspan::sim {

class SimScreenCapture final : public ScreenCapture {
  public:
    explicit SimScreenCapture(World& world)
        : world_(world) {}

    bool preflightAccess() const override {
        if (!told_ || !world_.freezesScreenRecording) told_ = world_.mayRecordScreen;
        return *told_;
    }
    bool requestAccess() override {
        ++requests_;
        if (!world_.mayRecordScreen) world_.privacy.ask(Permission::screenRecording);
        return preflightAccess();
    }
    /// How often access was requested.
    int requests() const { return requests_; }

    /// The program starts again, and reads the permission again.
    void forget() { told_.reset(); }

  private:
    World& world_;
    mutable std::optional<bool> told_;
    int requests_ = 0;
};

} // namespace larkspan::sim
