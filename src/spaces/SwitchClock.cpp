#include "spaces/SwitchClock.h"

#include <algorithm>
#include <cmath>

namespace larkspan {

std::optional<SwitchClock::Reading> SwitchClock::mark(Mark mark, double now) {
    const std::lock_guard lock(mutex_);
    if (timeline_ && now < timeline_->end) {
        if (mark != Mark::passive) timeline_->end = std::max(timeline_->end, now + lifetime);
        return Reading{std::llround((now - timeline_->start) * 1000)};
    }
    if (mark != Mark::starting) return std::nullopt;
    const bool endsAnother = timeline_.has_value();
    timeline_ = Timeline{now, now + lifetime};
    return Reading{.isStarted = true, .endsAnother = endsAnother};
}

bool SwitchClock::finish(double now) {
    const std::lock_guard lock(mutex_);
    if (!timeline_ || now < timeline_->end) return false;
    timeline_.reset();
    return true;
}

std::optional<double> SwitchClock::end() const {
    const std::lock_guard lock(mutex_);
    if (!timeline_) return std::nullopt;
    return timeline_->end;
}

} // namespace larkspan
