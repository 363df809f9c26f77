#pragma once

#include "soak/day/Failure.h"
#include "soak/day/Step.h"

#include <cstdint>
#include <vector>

namespace larkspan::soak {

/// The steps of a random day, the same for the same seed.
std::vector<Step> drawnSteps(std::uint32_t seed, std::size_t count);

struct Outcome {
    /// The first broken rule, at which the day ended.
    MaybeFailure failure;
    /// How many of the steps had an effect.
    std::size_t stepsDone = 0;
    /// The virtual time that has passed.
    double seconds = 0;
};

/// Runs the steps on a Mac on which the program has just been started, then rests and quits.
Outcome live(const std::vector<Step>& steps);

/// The same in a separate process, so that crashes and endless loops are failures as well. Returns
/// only the failure.
MaybeFailure liveApart(const std::vector<Step>& steps);

} // namespace larkspan::soak
