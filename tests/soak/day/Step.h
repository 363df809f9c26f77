#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace larkspan::soak {

/// One thing that happens on a simulated Mac. What the numbers mean is each act's own; a step that
/// makes no sense in the state it meets does nothing, so that any of a list's steps can be left
/// out.
struct Step {
    /// An act's name, one of `acts()`.
    std::string_view act;
    int a = 0;
    int b = 0;

    bool operator==(const Step&) const = default;
};

/// One line for each step, as it stands in the source of a test.
std::string listed(const std::vector<Step>& steps);

} // namespace larkspan::soak
