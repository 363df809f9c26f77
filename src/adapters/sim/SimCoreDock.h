#pragma once

#include "adapters/sim/world/World.h"
#include "platform/CoreDock.h"

namespace larkspan::sim {

/// The Dock's private functions, some of which may be missing.
class SimCoreDock final : public CoreDock {
  public:
    explicit SimCoreDock(World& world)
        : world_(world) {}

    bool has(CoreDockFunction function) const override;
    float tileSize() const override { return world_.dock.tileSize; }
    void setTileSize(float fraction) override;
    bool isAutoHideEnabled() const override { return world_.dock.autoHide; }
    void setAutoHideEnabled(bool enabled) override;
    OrientationAndPinning orientationAndPinning() const override { return world_.dock.place; }
    void setOrientationAndPinning(OrientationAndPinning value) override;
    bool isMagnificationEnabled() const override { return world_.dock.magnification; }
    void setMagnificationEnabled(bool enabled) override;
    void sendNotification(std::string_view name) override {
        world_.dockNotifications.emplace_back(name, world_.frontmost);
    }

    /// How often a setter was called.
    int setCalls() const { return setCalls_; }

  private:
    bool mayAct();

    World& world_;
    int setCalls_ = 0;
};

} // namespace larkspan::sim
