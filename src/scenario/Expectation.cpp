#include "scenario/Expectation.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <string_view>

namespace larkspan::sim {

namespace {

using nlohmann::json;

/// Computed numbers are rarely exactly the written one.
constexpr double tolerance = 0.001;

bool isNamed(const json& value, const std::string& name) {
    if (value.is_string()) return value.get_ref<const std::string&>() == name;
    if (!value.is_object()) return false;
    for (const char* key : {"id", "name", "title"}) {
        const auto found = value.find(key);
        if (found != value.end() && *found == name) return true;
    }
    return false;
}

const json* elementOf(const json& list, const std::string& part) {
    std::size_t index = 0;
    const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), index);
    if (error == std::errc{} && end == part.data() + part.size())
        return index < list.size() ? &list[index] : nullptr;
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const json& element) { return isNamed(element, part); });
    return found == list.end() ? nullptr : &*found;
}

bool isEqual(const json& actual, const json& expected) {
    if (actual.is_number() && expected.is_number())
        return std::abs(actual.get<double>() - expected.get<double>()) <= tolerance;
    if (actual.is_array() && expected.is_array())
        return std::equal(actual.begin(), actual.end(), expected.begin(), expected.end(), isEqual);
    return actual == expected;
}

bool contains(const json& list, const json& expected) {
    if (!list.is_array()) return false;
    return std::any_of(list.begin(), list.end(), [&](const json& element) {
        return isEqual(element, expected) ||
               (expected.is_string() && isNamed(element, expected.get<std::string>()));
    });
}

/// The ids of a list's objects, in order.
json idsOf(const json& list) {
    json ids = json::array();
    if (!list.is_array()) return ids;
    for (const json& element : list)
        ids.push_back(element.is_object() ? element.value("id", json(nullptr)) : element);
    return ids;
}

std::string shortened(const json& value) {
    std::string text = value.dump(-1, ' ', false, json::error_handler_t::replace);
    constexpr std::size_t most = 200;
    if (text.size() > most) text = text.substr(0, most) + "…";
    return text;
}

} // namespace

const json* valueAt(const json& state, const std::string& path) {
    const json* value = &state;
    std::size_t begin = 1;
    while (begin <= path.size() && path.size() > 1) {
        const std::size_t end = std::min(path.find('/', begin), path.size());
        const std::string part = path.substr(begin, end - begin);
        if (value->is_array()) {
            value = elementOf(*value, part);
        } else {
            const auto found = value->find(part);
            value = found == value->end() ? nullptr : &*found;
        }
        if (!value) return nullptr;
        begin = end + 1;
    }
    return value;
}

const std::vector<Field>& expectationConditions() {
    static const std::vector<Field> conditions{
        {"equals", FieldKind::anything}, {"contains", FieldKind::anything},
        {"lacks", FieldKind::anything},  {"ids", FieldKind::texts},
        {"count", FieldKind::index},     {"exists", FieldKind::flag}};
    return conditions;
}

std::optional<std::string> checkExpectation(const std::string& path, const json& fields) {
    if (!path.starts_with('/')) return "a path into the state must start with \"/\"";
    const auto& conditions = expectationConditions();
    if (auto error = checkFields(fields, conditions, {"at", "expect", "note"})) return error;
    const auto given = std::count_if(conditions.begin(), conditions.end(), [&](const Field& field) {
        return fields.contains(field.name);
    });
    if (given == 1) return std::nullopt;
    return "an expectation must have exactly one of \"equals\", \"contains\", \"lacks\", \"ids\", "
           "\"count\" and \"exists\"";
}

std::optional<std::string> compare(const json& state, const std::string& path, const json& fields) {
    const json* value = valueAt(state, path);
    if (const auto exists = fields.find("exists"); exists != fields.end()) {
        if (exists->get<bool>() == (value != nullptr)) return std::nullopt;
        return fmt::format("{} {}", path, value ? "exists" : "does not exist");
    }
    if (!value) return fmt::format("{} does not exist", path);
    const auto differs = [&](std::string_view word, const json& expected) {
        return fmt::format("{} is {}, expected {} {}", path, shortened(*value), word,
                           shortened(expected));
    };
    for (const auto& [word, expected] : fields.items()) {
        bool holds = true;
        if (word == "equals")
            holds = isEqual(*value, expected);
        else if (word == "contains")
            holds = contains(*value, expected);
        else if (word == "lacks")
            holds = value->is_array() && !contains(*value, expected);
        else if (word == "ids")
            holds = idsOf(*value) == expected;
        else if (word == "count")
            holds = value->is_array() && value->size() == expected;
        if (!holds) return differs(word, expected);
    }
    return std::nullopt;
}

} // namespace larkspan::sim
