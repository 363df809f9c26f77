#pragma once

#include "soak/day/Failure.h"
#include "soak/day/Step.h"

#include <string>
#include <vector>

namespace larkspan::soak {

/// Describes steps that broke a rule: the rule, and the shortest list found that breaks the same
/// rule, to be used in a test. Takes as long as a few hundred such days.
std::string describeFailure(const std::vector<Step>& steps, Failure failure);

} // namespace larkspan::soak
