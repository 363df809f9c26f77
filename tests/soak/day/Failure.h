#pragma once

#include <optional>
#include <string>

namespace larkspan::soak {

/// A broken rule. Two failures with the same rule count as the same fault.
struct Failure {
    std::string rule;
    std::string detail;
};

using MaybeFailure = std::optional<Failure>;

/// Absent if the rule holds.
inline MaybeFailure require(bool holds, const char* rule, std::string detail = {}) {
    if (holds) return std::nullopt;
    return Failure{rule, std::move(detail)};
}

} // namespace larkspan::soak
