#pragma once

#include <optional>
#include <string>

namespace larkspan::soak {

/// A rule that was found broken. Two with the same rule are taken for the same fault.
struct Complaint {
    std::string rule;
    std::string detail;
};

using Verdict = std::optional<Complaint>;

/// Nothing when it holds.
inline Verdict require(bool holds, const char* rule, std::string detail = {}) {
    if (holds) return std::nullopt;
    return Complaint{rule, std::move(detail)};
}

} // namespace larkspan::soak
