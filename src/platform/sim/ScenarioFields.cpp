#include "platform/sim/ScenarioFields.h"

#include <algorithm>
#include <fmt/format.h>

namespace larkspan::sim {

namespace {

using nlohmann::json;

bool isFrame(const json& value) {
    return value.is_array() && value.size() == 4 &&
           std::all_of(value.begin(), value.end(),
                       [](const json& each) { return each.is_number(); });
}

bool isTexts(const json& value) {
    return value.is_array() && std::all_of(value.begin(), value.end(),
                                           [](const json& each) { return each.is_string(); });
}

bool fits(const json& value, FieldKind kind) {
    switch (kind) {
    case FieldKind::text:
        return value.is_string();
    case FieldKind::number:
        return value.is_number();
    case FieldKind::index:
        return value.is_number_unsigned();
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

std::string_view describe(FieldKind kind) {
    switch (kind) {
    case FieldKind::text:
        return "a text";
    case FieldKind::number:
        return "a number";
    case FieldKind::index:
        return "a whole number from 0";
    case FieldKind::flag:
        return "true or false";
    case FieldKind::frame:
        return "four numbers: x, y, width, height";
    case FieldKind::texts:
        return "a list of texts";
    case FieldKind::anything:
        return "a value";
    }
    return {};
}

} // namespace

std::optional<std::string> checkFields(const json& object, const std::vector<Field>& fields,
                                       const std::vector<std::string_view>& besides) {
    for (const Field& field : fields) {
        const auto found = object.find(field.name);
        if (found == object.end()) {
            if (field.isRequired) return fmt::format("\"{}\" is missing", field.name);
        } else if (!fits(*found, field.kind)) {
            return fmt::format("\"{}\" is not {}", field.name, describe(field.kind));
        }
    }
    for (const auto& [name, value] : object.items()) {
        const auto isNamed = [&](const Field& field) { return field.name == name; };
        if (std::none_of(fields.begin(), fields.end(), isNamed) &&
            std::find(besides.begin(), besides.end(), name) == besides.end())
            return fmt::format("\"{}\" means nothing here", name);
    }
    return std::nullopt;
}

} // namespace larkspan::sim
