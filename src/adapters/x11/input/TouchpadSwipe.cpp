#include "adapters/x11/input/TouchpadSwipe.h"

#include <algorithm>
#include <cmath>

namespace larkspan::x11 {

namespace {

constexpr std::int64_t horizontal = 1;
constexpr std::int64_t vertical = 2;
constexpr std::int64_t began = 1;
constexpr std::int64_t changed = 2;
constexpr std::int64_t ended = 4;
constexpr std::int64_t cancelled = 8;
/// The velocity at the lift is that of the motions in the last milliseconds.
constexpr std::uint32_t speedSpan = 100;

} // namespace

void TouchpadSwipe::begin() {
    *this = {};
}

std::vector<SwipeStep> TouchpadSwipe::move(double x, double y, std::uint32_t time) {
    std::vector<SwipeStep> steps;
    if (motion_ == 0) {
        if (x == 0 && y == 0) return steps;
        motion_ = std::abs(x) >= std::abs(y) ? horizontal : vertical;
        steps.push_back({.phase = began, .motion = motion_});
    }
    // Fingers that move left pull in the Space on the right.
    progress_ -= (motion_ == horizontal ? x : y) / unitsPerSpace;
    // Unsigned, so that it also works when the server's time wraps around.
    std::erase_if(samples_, [time](const Sample& each) { return time - each.time > speedSpan; });
    samples_.push_back({time, progress_});
    steps.push_back({.phase = changed, .motion = motion_, .progress = progress_});
    return steps;
}

std::optional<SwipeStep> TouchpadSwipe::lift(bool isCancelled, std::uint32_t time) {
    if (motion_ == 0) return std::nullopt;
    const SwipeStep step{isCancelled ? cancelled : ended, motion_, progress_, velocity(time)};
    begin();
    return step;
}

double TouchpadSwipe::velocity(std::uint32_t time) const {
    const auto first = std::find_if(samples_.begin(), samples_.end(), [time](const Sample& each) {
        return time - each.time <= speedSpan;
    });
    // The fingers stopped, or there was only one motion, at the lift.
    if (first == samples_.end() || first->time == time) return 0;
    return (progress_ - first->progress) * 1000 / (time - first->time);
}

} // namespace larkspan::x11
