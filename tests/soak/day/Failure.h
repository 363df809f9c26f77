#pragma once

#include "soak/day/Complaint.h"
#include "soak/day/Step.h"

#include <string>
#include <vector>

namespace larkspan::soak {

/// What a person needs to know of steps that broke a rule: which one, and the shortest list found
/// that breaks the same, ready for a test. Takes as long as a few hundred such days.
std::string describeFailure(const std::vector<Step>& steps, Complaint complaint);

} // namespace larkspan::soak
