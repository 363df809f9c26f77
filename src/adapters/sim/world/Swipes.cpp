#include "adapters/sim/world/Swipes.h"

#include <algorithm>
#include <cmath>

namespace larkspan::sim {

namespace {

constexpr double stepsPerSecond = 60;
constexpr std::int64_t began = 1;
constexpr std::int64_t changed = 2;
constexpr std::int64_t ended = 4;
constexpr std::int64_t cancelled = 8;

SimEvent step(std::int64_t phase, double progress, double velocity = 0) {
    SimEvent event(TapEvent::gesture);
    event.withInteger(TapEvent::gestureKind, TapEvent::dockSwipe)
        .withInteger(TapEvent::swipeMotion, TapEvent::horizontal)
        .withInteger(TapEvent::swipePhase, phase)
        .withDouble(TapEvent::swipeProgress, progress)
        .withDouble(TapEvent::swipeVelocity, velocity);
    return event;
}

} // namespace

void Swipes::swipe(DisplayId display, const SwipeOptions& options) {
    const auto timers = underWay_.emplace(underWay_.end());
    const auto at = [&](double seconds, Scheduler::Task task) {
        timers->push_back(scheduler_.after(seconds, std::move(task)));
    };
    const int steps = std::max(1, static_cast<int>(options.seconds * stepsPerSecond));
    taps_.send(step(began, 0));
    for (int i = 1; i < steps; ++i)
        at(options.seconds * i / steps,
           [this, part = options.progress * i / steps] { taps_.send(step(changed, part)); });
    at(options.seconds, [this, options] {
        taps_.send(
            step(options.isCancelled ? cancelled : ended, options.progress, options.velocity));
    });
    at(options.seconds + landingSeconds, [this, timers, display, options] {
        const bool moves = options.switches && !options.isCancelled && options.progress != 0;
        if (moves) move_(display, options.progress > 0 ? 1 : -1);
        underWay_.erase(timers);
    });
}

} // namespace larkspan::sim
