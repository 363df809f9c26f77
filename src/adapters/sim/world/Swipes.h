#pragma once

#include "adapters/sim/SimEventTaps.h"
#include "adapters/sim/VirtualScheduler.h"
#include "platform/Identifiers.h"

#include <functional>
#include <list>
#include <utility>
#include <vector>

namespace larkspan::sim {

struct SwipeOptions {
    /// The position at which the fingers lift: 1 is a whole Space to the right, -1 one to the left.
    double progress = 1;
    /// Progress per second at the lift.
    double velocity = 0;
    /// From the first touch to the lift.
    double seconds = 0.25;
    /// Whether the system cancels the gesture.
    bool isCancelled = false;
    /// Whether the neighbouring Space is shown in the end; otherwise the Spaces slide back.
    bool switches = true;
};

/// The fingers on the trackpad: sends raw events sixty times a second, and moves the Spaces when
/// they lift.
class Swipes {
  public:
    /// Seconds from the lift until the Spaces have stopped.
    static constexpr double landingSeconds = 0.4;
    /// Shows the Space beside the display's current one: the right one for +1, the left one for -1.
    using Move = std::function<void(DisplayId display, int step)>;

    Swipes(VirtualScheduler& scheduler, SimEventTaps& taps, Move move)
        : scheduler_(scheduler)
        , taps_(taps)
        , move_(std::move(move)) {}

    void swipe(DisplayId display, const SwipeOptions& options);

  private:
    using Timers = std::vector<Handle>;

    VirtualScheduler& scheduler_;
    SimEventTaps& taps_;
    Move move_;
    /// The pending timers of each swipe.
    std::list<Timers> underWay_;
};

} // namespace larkspan::sim
