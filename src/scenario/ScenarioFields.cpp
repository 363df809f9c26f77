#include "scenario/ScenarioFields.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace larkspan::sim {

namespace {

using nlohmann::json;

bool isFrame(const json& value) {
    return value.is_array() && value.size() == 4 &&
           std::all_of(value.begin(), value.end(),
                       [](const json& each) { return each.is_number(); }) &&
           value[2].get<double>() > 0 && value[3].get<double>() > 0;
}

bool isWithin(const json& value, const Field& field) {
    const auto number = value.get<double>();
    return number >= field.least && number <= field.most;
}

bool isTexts(const json& value) {
    return value.is_array() && std::all_of(value.begin(), value.end(),
                                           [](const json& each) { return each.is_string(); });
}

bool fits(const json& value, const Field& field) {
    switch (field.kind) {
    case FieldKind::text:
        return value.is_string();
    case FieldKind::number:
        return value.is_number() && isWithin(value, field);
    case FieldKind::index:
        return value.is_number_unsigned() && isWithin(value, field);
    case FieldKind::flag:
        return value.is_boolean();
    case FieldKind::frame:
        return isFrame(value);
    case FieldKind::texts:
        return isTexts(value);
    case FieldKind::anything:
        return true;
    }
    return false;
}

std::string describe(const Field& field) {
    const bool isBounded = std::isfinite(field.most);
    switch (field.kind) {
    case FieldKind::text:
        return "a string";
    case FieldKind::number:
        if (isBounded) return fmt::format("a number from {} to {}", field.least, field.most);
        return "a number";
    case FieldKind::index:
        if (isBounded) return fmt::format("a whole number from {} to {}", field.least, field.most);
        return "a whole number of at least 0";
    case FieldKind::flag:
        return "true or false";
    case FieldKind::frame:
        return "four numbers: x, y, width, height, the last two above 0";
    case FieldKind::texts:
        return "a list of strings";
    case FieldKind::anything:
        return "a value";
    }
    return {};
}

} // namespace

std::optional<std::string> checkField(const json& object, const Field& field) {
    const auto found = object.find(field.name);
    if (found == object.end()) {
        if (field.isRequired) return fmt::format("\"{}\" is missing", field.name);
    } else if (!fits(*found, field)) {
        return fmt::format("\"{}\" is not {}", field.name, describe(field));
    }
    return std::nullopt;
}

std::optional<std::string> checkFields(const json& object, const std::vector<Field>& fields,
                                       const std::vector<std::string_view>& besides) {
    for (const Field& field : fields) {
        if (auto error = checkField(object, field)) return error;
    }
    for (const auto& [name, value] : object.items()) {
        const auto isNamed = [&](const Field& field) { return field.name == name; };
        if (std::none_of(fields.begin(), fields.end(), isNamed) &&
            std::find(besides.begin(), besides.end(), name) == besides.end())
            return fmt::format("unknown field \"{}\"", name);
    }
    return std::nullopt;
}

} // namespace larkspan::sim
