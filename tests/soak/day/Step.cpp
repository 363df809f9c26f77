#include "soak/day/Step.h"

#include <fmt/format.h>

namespace larkspan::soak {

std::string listed(const std::vector<Step>& steps) {
    std::string text;
    for (const auto& [act, a, b] : steps)
        text += fmt::format("{{\"{}\", {}, {}}},\n", act, a, b);
    return text;
}

} // namespace larkspan::soak
