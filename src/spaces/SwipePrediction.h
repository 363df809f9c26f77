#pragma once

#include "spaces/SpaceSwipeEvent.h"

#include <optional>
#include <string>

namespace larkspan {

/// What a swipe will come to once the fingers are lifted, told before the system tells.
struct SwipePrediction {
    enum class Direction { left, right };
    /// Towards which Space; absent when the Spaces will slide back to where they were.
    std::optional<Direction> expected;

    /// `lifted` is the swipe's last step.
    static SwipePrediction of(const SpaceSwipeEvent& lifted);

    /// "no switch" or "a switch to the left".
    std::string description() const;
};

} // namespace larkspan
