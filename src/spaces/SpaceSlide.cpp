#include "spaces/SpaceSlide.h"

#include <fmt/format.h>

#include <utility>

namespace larkspan {

void SpaceSlide::step(const SpaceSwipeEvent& event) {
    using Phase = SpaceSwipeEvent::Phase;
    prediction_.reset();
    if (event.phase == Phase::ended || event.phase == Phase::cancelled)
        lift(event);
    else
        restAfter(longestSilence);
    if (onSliding) onSliding();
}

void SpaceSlide::lift(const SpaceSwipeEvent& event) {
    prediction_ = SwipePrediction::of(event);
    log_.stamp("swipe",
               fmt::format("fingers lifted at {:.2f}, {:.2f} per second: expecting {}",
                           event.progress, event.velocity, prediction_->description()),
               SpaceSwitchLog::Mark::ordinary);
    restAfter(prediction_->expected ? longestLanding : slidingBack);
}

void SpaceSlide::restAfter(double seconds) {
    rest_ = scheduler_.after(seconds, [this] { rest(); });
}

void SpaceSlide::spaceChanged() {
    // While the fingers are still down, an earlier swipe has landed.
    if (prediction_) land(true);
}

void SpaceSlide::rest() {
    if (prediction_) return land(false);
    rest_.reset();
    if (onRest) onRest();
}

void SpaceSlide::land(bool hasSwitched) {
    const auto prediction = std::exchange(prediction_, std::nullopt);
    log_.stamp("swipe",
               fmt::format("{} {}", hasSwitched ? "switched" : "stayed",
                           prediction->expected.has_value() == hasSwitched ? "as expected"
                                                                           : "not as expected"),
               SpaceSwitchLog::Mark::ordinary);
    rest();
}

} // namespace larkspan
