#pragma once

namespace larkspan {

/// The strip at the bottom of every screen that windows keep clear of while the bar is in use. On a
/// Mac the system Dock holds it, and this does nothing; on a desktop without a system Dock the bars
/// hold it themselves, and the visible frames of `Screens` leave it out. Main thread only.
class DockStrip {
  public:
    virtual ~DockStrip() = default;
    /// Holds a strip of that height (points) on every screen, in place of any held before.
    virtual void hold(double height) = 0;
    virtual void release() = 0;
};

} // namespace larkspan
