#pragma once

#include <nlohmann/json.hpp>

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
    /// Four numbers: x, y, width, height.
    frame,
    /// A list of texts.
    texts,
    anything,
};

struct Field {
    std::string_view name;
    FieldKind kind;
    bool isRequired = false;
};

/// Answers what is wrong: a field that is missing, of another kind, or unknown. The fields named in
/// `besides` are the caller's own.
std::optional<std::string> checkFields(const nlohmann::json& object,
                                       const std::vector<Field>& fields,
                                       const std::vector<std::string_view>& besides);

} // namespace larkspan::sim
