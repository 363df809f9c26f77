#include "spaces/SwipePrediction.h"

#include <cmath>

namespace larkspan {
namespace {

constexpr double halfway = 0.5;
/// The progress per second from which a short flick continues in its direction.
constexpr double flick = 1.0;

bool carriesOn(const SpaceSwipeEvent& lifted) {
    if (lifted.phase != SpaceSwipeEvent::Phase::ended) return false;
    if (std::abs(lifted.progress) >= halfway) return true;
    return lifted.progress * lifted.velocity > 0 && std::abs(lifted.velocity) >= flick;
}

} // namespace

SwipePrediction SwipePrediction::of(const SpaceSwipeEvent& lifted) {
    if (!carriesOn(lifted)) return {};
    return {lifted.progress > 0 ? Direction::right : Direction::left};
}

std::string SwipePrediction::description() const {
    if (!expected) return "no switch";
    return *expected == Direction::right ? "a switch to the right" : "a switch to the left";
}

} // namespace larkspan
