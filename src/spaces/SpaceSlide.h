#pragma once

#include "platform/Scheduler.h"
#include "spaces/SpaceSwipeEvent.h"
#include "spaces/SpaceSwitchLog.h"
#include "spaces/SwipePrediction.h"

#include <functional>
#include <optional>

namespace larkspan {

/// A slide of the Spaces during a swipe, from its first step to its landing: predicts where it goes
/// when the fingers lift, and reports afterwards whether it went there. Every slide ends, whether
/// or not the system reports a change. Main thread only.
class SpaceSlide {
  public:
    /// Resting fingers send no events, and neither does a swipe whose end was lost. In seconds.
    static constexpr double longestSilence = 2;
    /// From the lift to the system's notification of another Space. Shorter than a timeline lasts,
    /// so that the outcome is still part of it.
    static constexpr double longestLanding = 1.2;
    /// From the lift until Spaces that slide back have stopped.
    static constexpr double slidingBack = 0.5;

    SpaceSlide(Scheduler& scheduler, SpaceSwitchLog& log)
        : scheduler_(scheduler)
        , log_(log) {}
    SpaceSlide(const SpaceSlide&) = delete;
    SpaceSlide& operator=(const SpaceSlide&) = delete;

    /// The next step of the swipe.
    void step(const SpaceSwipeEvent& event);
    /// The system reports another active Space.
    void spaceChanged();

    /// The Spaces slide; called at each step.
    std::function<void()> onSliding;
    /// They have stopped.
    std::function<void()> onRest;
    bool isSliding() const { return rest_.operator bool(); }

  private:
    void restAfter(double seconds);
    void lift(const SpaceSwipeEvent& event);
    void rest();
    void land(bool hasSwitched);

    Scheduler& scheduler_;
    SpaceSwitchLog& log_;
    /// Present from the lift to the landing.
    std::optional<SwipePrediction> prediction_;
    Handle rest_;
};

} // namespace larkspan
