#pragma once

#include "spaces/SpaceMap.h"

#include <optional>

namespace larkspan {

/// One step of a swipe between Spaces.
struct SpaceSwipeEvent {
    enum class Phase { began, changed, ended, cancelled };
    Phase phase = Phase::began;
    /// Greater than 0 is towards the right-hand Space; 1 is a whole Space.
    double progress = 0;
    /// Progress per second; known for `ended` only.
    double velocity = 0;
    /// The Spaces at the start of the swipe; only for `began`, and absent if they cannot be read.
    std::optional<SpaceMap> spaces;
};

} // namespace larkspan
