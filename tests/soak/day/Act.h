#pragma once

#include "soak/day/Day.h"

#include <string_view>
#include <vector>

namespace larkspan::soak {

/// One kind of step.
struct Act {
    std::string_view name;
    /// How often it happens, beside the others.
    int weight = 1;
    /// The numbers are drawn from 0 up to these, these left out.
    int countOfA = 1;
    int countOfB = 1;
    /// Answers whether there was anything to do.
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
/// Stops the program when there is no act of that name.
const Act& actNamed(std::string_view name);

} // namespace larkspan::soak
