#pragma once

#include "soak/day/Day.h"

#include <string_view>
#include <vector>

namespace larkspan::soak {

/// One kind of step.
struct Act {
    std::string_view name;
    /// How often it happens, relative to the others.
    int weight = 1;
    /// The numbers are drawn from 0 up to, but not including, these.
    int countOfA = 1;
    int countOfB = 1;
    /// Returns whether it had an effect.
    bool (*perform)(Day& day, int a, int b) = nullptr;
};

std::vector<Act> appActs();
std::vector<Act> windowActs();
std::vector<Act> displayActs();
std::vector<Act> barActs();
std::vector<Act> systemActs();
std::vector<Act> faultActs();

/// All of them.
const std::vector<Act>& acts();
/// Throws if there is no act with that name.
const Act& actNamed(std::string_view name);

} // namespace larkspan::soak
