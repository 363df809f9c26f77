#pragma once

#include "adapters/mac/PrivateFunctions.h"
#include "platform/CoreDock.h"

namespace larkspan::mac {

/// The Dock's private functions. The Dock writes these settings to its preferences, so they outlive
/// us.
class MacCoreDock final : public CoreDock {
  public:
    explicit MacCoreDock(const PrivateFunctions& functions)
        : functions_(functions) {}

    bool has(CoreDockFunction function) const override;
    float tileSize() const override;
    void setTileSize(float fraction) override;
    bool isAutoHideEnabled() const override;
    void setAutoHideEnabled(bool enabled) override;
    OrientationAndPinning orientationAndPinning() const override;
    void setOrientationAndPinning(OrientationAndPinning value) override;
    bool isMagnificationEnabled() const override;
    void setMagnificationEnabled(bool enabled) override;
    void sendNotification(std::string_view name) override;

  private:
    const PrivateFunctions& functions_;
};

} // namespace larkspan::mac
