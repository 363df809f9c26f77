#pragma once

#include <nlohmann/json_fwd.hpp>

#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::sim {

/// What a field of a scenario may contain.
enum class FieldKind {
    text,
    number,
    /// A whole number of at least 0.
    index,
    flag,
    /// Four numbers: x, y, width, height; the last two above 0.
    frame,
    /// A list of strings.
    texts,
    anything,
};

struct Field {
    std::string_view name;
    FieldKind kind;
    bool isRequired = false;
    /// The limits of a number.
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
};

/// Seconds of the scenario's own time. More than a day must be a mistake.
constexpr Field secondsField(std::string_view name, bool isRequired = false) {
    return {name, FieldKind::number, isRequired, 0, 86'400};
}

/// The error of the field: it is missing or has the wrong kind; absent if it is correct.
std::optional<std::string> checkField(const nlohmann::json& object, const Field& field);

/// The error of the object: a field that is missing, has the wrong kind, or is unknown; absent if
/// it is correct. The fields in `besides` are checked by the caller.
std::optional<std::string> checkFields(const nlohmann::json& object,
                                       const std::vector<Field>& fields,
                                       const std::vector<std::string_view>& besides);

} // namespace larkspan::sim
