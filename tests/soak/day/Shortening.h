#pragma once

#include "soak/day/Failure.h"
#include "soak/day/Step.h"

#include <functional>

namespace larkspan::soak {

/// The shortest failing list found, from one that fails: removes steps as long as the rest still
/// fails, in ever smaller runs, then makes the numbers of the remaining ones small.
std::vector<Step> shortened(std::vector<Step> steps,
                            const std::function<bool(const std::vector<Step>&)>& fails);

/// Describes steps that broke a rule: the rule, and the shortest list found that breaks the same
/// rule, as C++ source for a test. Takes as long as a few hundred such days.
std::string describeFailure(const std::vector<Step>& steps, Failure failure);

} // namespace larkspan::soak
