#include "ui/bar/SpringCurve.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace larkspan::ui {

namespace {

struct Spring {
    double frequency; // undamped, radians per second
    double damping;

    double position(double time) const {
        const double decay = std::exp(-damping * frequency * time);
        if (damping >= 1) return 1 - decay * (1 + frequency * time);
        const double root = std::sqrt(1 - damping * damping);
        const double angle = frequency * root * time;
        return 1 - decay * (std::cos(angle) + damping / root * std::sin(angle));
    }

    double velocity(double time) const {
        const double decay = std::exp(-damping * frequency * time);
        if (damping >= 1) return decay * frequency * frequency * time;
        const double root = std::sqrt(1 - damping * damping);
        return decay * frequency / root * std::sin(frequency * root * time);
    }

    /// When less than half a percent of the way is left.
    double restTime() const { return 5.3 / (std::min(damping, 1.0) * frequency); }
};

} // namespace

SpringCurve springCurve(const Animation& animation) {
    if (animation.response <= 0) return {};
    const Spring spring{2 * std::numbers::pi / animation.response,
                        std::clamp(animation.damping, 0.1, 1.0)};
    constexpr int segments = 6;
    const double total = spring.restTime();
    const double step = total / segments;
    SpringCurve curve{static_cast<int>(std::lround(total * 1000)), {}};
    // Each segment meets the spring's position and speed at both of its ends.
    for (int i = 0; i < segments; ++i) {
        const double start = i * step;
        const double end = start + step;
        const bool isLast = i == segments - 1;
        const double endPosition = isLast ? 1.0 : spring.position(end);
        const double endVelocity = isLast ? 0.0 : spring.velocity(end);
        curve.bezier << (start + step / 3) / total
                     << spring.position(start) + spring.velocity(start) * step / 3
                     << (end - step / 3) / total << endPosition - endVelocity * step / 3
                     << (isLast ? 1.0 : end / total) << endPosition;
    }
    return curve;
}

} // namespace larkspan::ui
