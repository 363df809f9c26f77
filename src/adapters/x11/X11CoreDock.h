#pragma once

#include "platform/CoreDock.h"

namespace larkspan::x11 {

/// There is no system Dock on X11, so all of its functions are missing.
class X11CoreDock : public CoreDock {
  public:
    bool has(CoreDockFunction) const override { return false; }
    float tileSize() const override { return 0; }
    void setTileSize(float) override {}
    bool isAutoHideEnabled() const override { return false; }
    void setAutoHideEnabled(bool) override {}
    OrientationAndPinning orientationAndPinning() const override { return {}; }
    void setOrientationAndPinning(OrientationAndPinning) override {}
    bool isMagnificationEnabled() const override { return false; }
    void setMagnificationEnabled(bool) override {}
    void sendNotification(std::string_view) override {}
};

} // namespace larkspan::x11
