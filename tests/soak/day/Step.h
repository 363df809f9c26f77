#pragma once

#include <string_view>
#include <vector>

namespace larkspan::soak {

/// One event on a simulated Mac. Each act defines the meaning of its numbers. A step that is
/// impossible in the current state has no effect, so that any step can be removed from a list.
struct Step {
    /// The name of one of `acts()`.
    std::string_view act;
    int a = 0;
    int b = 0;

    bool operator==(const Step&) const = default;
};

} // namespace larkspan::soak
