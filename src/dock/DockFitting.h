#pragma once

#include "platform/CoreDock.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"

#include <functional>

namespace larkspan {

/// Fits the Dock under the bar: sets an icon size, waits until the Dock has applied it, measures
/// the strip, corrects the size. Ends by itself after a few passes. Destroying it cancels it
/// without calling back. Main thread only.
class DockFitting {
  public:
    static constexpr double settleSeconds = 0.7;
    static constexpr int mostCorrections = 4;

    /// `height` is the wanted strip, in points. `onFinished` gets the final icon size, as the
    /// Dock's fraction, and may destroy the fitting.
    DockFitting(Scheduler& scheduler, CoreDock& dock, Screens& screens, double height,
                std::function<void(float)> onFinished);
    DockFitting(const DockFitting&) = delete;
    DockFitting& operator=(const DockFitting&) = delete;

  private:
    void setSize(double pixels);
    void measureLater();
    void measure();
    void correct(double stripHeight);
    void finish(double pixels);

    Scheduler& scheduler_;
    CoreDock& dock_;
    Screens& screens_;
    double height_;
    std::function<void(float)> onFinished_;
    double size_ = 0;
    /// The last size, in pixels, at which the strip grew.
    double grownSize_ = 0;
    double lastStripHeight_ = 0;
    int corrections_ = 0;
    Handle timer_;
};

} // namespace larkspan
