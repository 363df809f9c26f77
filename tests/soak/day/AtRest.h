#pragma once

#include "soak/day/Day.h"
#include "soak/day/Failure.h"

namespace larkspan::soak {

/// Seconds without an act after which the model has followed everything: a full read every two
/// seconds if the desktop is polled, the fitting of the Dock, its restart.
constexpr double quietSeconds = 6;

/// The first rule that is broken at rest: the model equals a second one that has just read
/// everything, there is one panel for each screen that needs one, and nothing is still running.
MaybeFailure failureAtRest(Day& day);

} // namespace larkspan::soak
