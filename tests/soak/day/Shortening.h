#pragma once

#include "soak/day/Step.h"

#include <functional>
#include <vector>

namespace larkspan::soak {

/// The shortest list found that still fails, from one that fails: steps are left out as long as
/// that works, in ever smaller runs, then the numbers of those that remain are made small.
std::vector<Step> shortened(std::vector<Step> steps,
                            const std::function<bool(const std::vector<Step>&)>& fails);

} // namespace larkspan::soak
