#pragma once

#include "soak/day/Complaint.h"
#include "soak/day/Step.h"

#include <cstdint>
#include <vector>

namespace larkspan::soak {

/// The steps of a random day, the same for the same seed.
std::vector<Step> drawnSteps(std::uint32_t seed, std::size_t count);

struct Outcome {
    /// The first broken rule, at which the day ended.
    Verdict verdict;
    /// How many of the steps found something to do.
    std::size_t stepsDone = 0;
    /// Virtual time that passed.
    double seconds = 0;
};

/// Lives through the steps from a morning on which the program has just been started, then rests
/// and quits.
Outcome live(const std::vector<Step>& steps);

/// The same in a process of its own, so that steps which stop the program or never come to an end
/// are complaints as well. A complaint is all it answers.
Verdict liveApart(const std::vector<Step>& steps);

} // namespace larkspan::soak
