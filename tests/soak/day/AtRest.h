#pragma once

#include "soak/day/Complaint.h"
#include "soak/day/Day.h"

namespace larkspan::soak {

/// Seconds without an act after which the model has followed everything that went before: a full
/// read every two seconds where the desktop is polled, the Dock's fitting, its restart.
constexpr double quietSeconds = 6;

/// The first rule that does not hold at rest: the model is what a second one that has only just
/// read everything would be, there is one panel for each screen that wants one, and nothing is left
/// running.
Verdict complaintAtRest(Day& day);

} // namespace larkspan::soak
