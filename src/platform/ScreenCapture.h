#pragma once

namespace larkspan {

/// The permission to record the screen. Main thread only.
class ScreenCapture {
  public:
    virtual ~ScreenCapture() = default;
    virtual bool preflightAccess() const = 0;
    virtual bool requestAccess() = 0;
};

} // namespace larkspan
