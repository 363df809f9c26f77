#pragma once

namespace larkspan {

/// The strip at the bottom of every screen that windows leave free while the bar is in use. On a
/// Mac the system Dock reserves it, and this does nothing. On a desktop without a system Dock the
/// bars reserve it, and the visible frames of `Screens` exclude it. Main thread only.
class DockStrip {
  public:
    virtual ~DockStrip() = default;
    /// Reserves a strip of that height (points) on every screen, replacing an earlier one.
    virtual void hold(double height) = 0;
    virtual void release() = 0;
};

} // namespace larkspan
