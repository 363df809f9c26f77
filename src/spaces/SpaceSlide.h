#pragma once

#include "platform/Scheduler.h"
#include "spaces/SpaceSwipeEvent.h"
#include "spaces/SpaceSwitchLog.h"
#include "spaces/SwipePrediction.h"

#include <functional>
#include <optional>

namespace larkspan {

/// A slide of the Spaces under a swipe, from its first step to its landing: predicts where it goes
/// when the fingers lift, and says afterwards whether it went there. Every slide ends, whatever the
/// system tells or keeps to itself. Main thread only.
class SpaceSlide {
  public:
    /// Fingers that rest say nothing; a swipe whose end was lost says nothing either. In seconds.
    static constexpr double longestSilence = 2;
    /// From the lift to the system's word of another Space. Shorter than a timeline lives on, so
    /// that the outcome still stands in it.
    static constexpr double longestLanding = 1.2;
    /// From the lift until Spaces that slide back stand still.
    static constexpr double slidingBack = 0.5;

    SpaceSlide(Scheduler& scheduler, SpaceSwitchLog& log)
        : scheduler_(scheduler)
        , log_(log) {}
    SpaceSlide(const SpaceSlide&) = delete;
    SpaceSlide& operator=(const SpaceSlide&) = delete;

    /// The next step of the swipe.
    void step(const SpaceSwipeEvent& event);
    /// The system tells that another Space is active.
    void spaceChanged();

    /// The Spaces slide: at each step.
    std::function<void()> onSliding;
    /// They stand still again.
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
