#pragma once

#include "spaces/SpaceSwipeEvent.h"

#include <optional>
#include <string>

namespace larkspan {

/// The predicted result of a swipe when the fingers lift, before the system reports it.
struct SwipePrediction {
    enum class Direction { left, right };
    /// The direction of the new Space; absent if the Spaces will slide back.
    std::optional<Direction> expected;

    /// `lifted` is the swipe's last step.
    static SwipePrediction of(const SpaceSwipeEvent& lifted);

    /// "no switch" or "a switch to the left".
    std::string description() const;
};

} // namespace larkspan
