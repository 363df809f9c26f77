#include "settings/StoredValue.h"

#include <cmath>

namespace larkspan {
namespace {

std::optional<double> numberOf(const PropertyValue& value) {
    if (const auto* whole = value.as<std::int64_t>()) return static_cast<double>(*whole);
    if (const auto* real = value.as<double>(); real && std::isfinite(*real)) return *real;
    return std::nullopt;
}

std::optional<std::string> stringOf(const PropertyValue& value) {
    const auto* text = value.as<std::string>();
    return text ? std::optional(*text) : std::nullopt;
}

template <typename Element>
std::optional<std::vector<Element>>
elementsOf(const std::optional<PropertyValue>& stored,
           std::optional<Element> (*convert)(const PropertyValue&)) {
    const auto* array = stored ? stored->as<PropertyValue::Array>() : nullptr;
    if (!array) return std::nullopt;
    std::vector<Element> elements;
    for (const auto& value : *array) {
        auto element = convert(value);
        if (!element) return std::nullopt;
        elements.push_back(std::move(*element));
    }
    return elements;
}

} // namespace

std::optional<double> storedNumber(const UserDefaults& defaults, std::string_view key) {
    const auto stored = defaults.value(key);
    return stored ? numberOf(*stored) : std::nullopt;
}

std::optional<bool> storedBool(const UserDefaults& defaults, std::string_view key) {
    const auto stored = defaults.value(key);
    const auto* boolean = stored ? stored->as<bool>() : nullptr;
    return boolean ? std::optional(*boolean) : std::nullopt;
}

std::optional<std::string> storedString(const UserDefaults& defaults, std::string_view key) {
    const auto stored = defaults.value(key);
    return stored ? stringOf(*stored) : std::nullopt;
}

std::optional<std::vector<double>> storedNumbers(const UserDefaults& defaults,
                                                 std::string_view key) {
    return elementsOf<double>(defaults.value(key), numberOf);
}

std::optional<std::vector<std::string>> storedStrings(const UserDefaults& defaults,
                                                      std::string_view key) {
    return elementsOf<std::string>(defaults.value(key), stringOf);
}

} // namespace larkspan
