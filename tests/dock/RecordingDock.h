#pragma once

#include "platform/CoreDock.h"

#include <fmt/format.h>
#include <set>
#include <string>
#include <vector>

namespace larkspan {

/// A Dock that accepts every setting and records the calls that change one.
class RecordingDock : public CoreDock {
  public:
    bool has(CoreDockFunction function) const override { return !missing.contains(function); }
    float tileSize() const override { return size; }
    void setTileSize(float fraction) override {
        size = fraction;
        calls.push_back(fmt::format("size {:.4f}", fraction));
    }
    bool isAutoHideEnabled() const override { return hides; }
    void setAutoHideEnabled(bool enabled) override {
        hides = enabled;
        calls.push_back(fmt::format("hide {}", enabled));
    }
    OrientationAndPinning orientationAndPinning() const override { return place; }
    void setOrientationAndPinning(OrientationAndPinning value) override {
        place = value;
        calls.push_back(fmt::format("place {} {}", value.orientation, value.pinning));
    }
    bool isMagnificationEnabled() const override { return magnifies; }
    void setMagnificationEnabled(bool enabled) override {
        magnifies = enabled;
        calls.push_back(fmt::format("magnify {}", enabled));
    }
    void sendNotification(std::string_view name) override { calls.emplace_back(name); }

    std::set<CoreDockFunction> missing;
    float size = 0.3F;
    bool hides = false;
    OrientationAndPinning place;
    bool magnifies = false;
    std::vector<std::string> calls;
};

} // namespace larkspan
