#pragma once

#include "adapters/sim/world/World.h"
#include "platform/ScreenCapture.h"

namespace larkspan::sim {

class SimScreenCapture final : public ScreenCapture {
  public:
    explicit SimScreenCapture(World& world)
        : world_(world) {}

    bool preflightAccess() const override {
        if (!firstAnswer_ || !world_.freezesScreenRecording) firstAnswer_ = world_.mayRecordScreen;
        return *firstAnswer_;
    }
    bool requestAccess() override {
        ++requests_;
        if (!world_.mayRecordScreen) world_.privacy.ask(Permission::screenRecording);
        return preflightAccess();
    }
    /// How often access was requested.
    int requests() const { return requests_; }

    /// The program starts again, and reads the permission again.
    void forget() { firstAnswer_.reset(); }

  private:
    World& world_;
    mutable std::optional<bool> firstAnswer_;
    int requests_ = 0;
};

} // namespace larkspan::sim
