#pragma once

#include <cstdint>
#include <string_view>

namespace larkspan {

/// The Dock's private functions, each of which may be missing on this system.
enum class CoreDockFunction {
    getTileSize,
    setTileSize,
    getAutoHideEnabled,
    setAutoHideEnabled,
    getOrientationAndPinning,
    setOrientationAndPinning,
    isMagnificationEnabled,
    setMagnificationEnabled,
    sendNotification,
};

struct OrientationAndPinning {
    /// 2 is the bottom, 3 the left, 4 the right.
    std::uint32_t orientation = 2;
    /// 1 is the start of the edge, 2 its middle, 3 its end.
    std::uint32_t pinning = 2;
    bool operator==(const OrientationAndPinning&) const = default;
};

/// The system Dock's settings. Calling a function for which `has` returns false is a programming
/// error. Main thread only.
class CoreDock {
  public:
    virtual ~CoreDock() = default;
    virtual bool has(CoreDockFunction function) const = 0;
    /// The icon size as a fraction: 0 is 16 pixels, 1 is 128. May lie outside 0...1.
    virtual float tileSize() const = 0;
    virtual void setTileSize(float fraction) = 0;
    virtual bool isAutoHideEnabled() const = 0;
    virtual void setAutoHideEnabled(bool enabled) = 0;
    virtual OrientationAndPinning orientationAndPinning() const = 0;
    virtual void setOrientationAndPinning(OrientationAndPinning value) = 0;
    virtual bool isMagnificationEnabled() const = 0;
    virtual void setMagnificationEnabled(bool enabled) = 0;
    /// Sends the Dock the notification of a keyboard key: "com.apple.expose.front.awake" spreads
    /// out the windows of the frontmost app.
    virtual void sendNotification(std::string_view name) = 0;
};

} // namespace larkspan
