#pragma once

#include "soak/day/Step.h"

#include <functional>
#include <vector>

namespace larkspan::soak {

/// The shortest failing list found, from one that fails: removes steps as long as the rest still
/// fails, in ever smaller runs, then makes the numbers of the remaining ones small.
std::vector<Step> shortened(std::vector<Step> steps,
                            const std::function<bool(const std::vector<Step>&)>& fails);

} // namespace larkspan::soak
