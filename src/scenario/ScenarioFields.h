#pragma once

#include <nlohmann/json_fwd.hpp>

#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::sim {

/// What a field of a scenario may hold.
enum class FieldKind {
    text,
    number,
    /// A whole number from 0.
    index,
    flag,
    /// Four numbers: x, y, width, height; the last two above 0.
    frame,
    /// A list of texts.
    texts,
    anything,
};

struct Field {
    std::string_view name;
    FieldKind kind;
    bool isRequired = false;
    /// What a number may be.
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
};

/// Seconds of a scenario's own time. One that asks for more than a day has a slip in it.
constexpr Field secondsField(std::string_view name, bool isRequired = false) {
    return {name, FieldKind::number, isRequired, 0, 86'400};
}

/// Answers what is wrong with the field: it is missing, or holds something else.
std::optional<std::string> checkField(const nlohmann::json& object, const Field& field);

/// Answers what is wrong: a field that is missing, of another kind, or unknown. The fields named in
/// `besides` are the caller's own.
std::optional<std::string> checkFields(const nlohmann::json& object,
                                       const std::vector<Field>& fields,
                                       const std::vector<std::string_view>& besides);

} // namespace larkspan::sim
