#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace larkspan {

/// Raw bytes, as opposed to text.
struct Data {
    std::string bytes;
    bool operator==(const Data&) const = default;
};

/// A property-list value, as in the user defaults and the Dock's preferences. Types are kept: a
/// number stored as a string stays a string.
struct PropertyValue {
    using Array = std::vector<PropertyValue>;
    using Dictionary = std::map<std::string, PropertyValue>;

    std::variant<bool, std::int64_t, double, std::string, Data, Array, Dictionary> value;

    PropertyValue() = default;
    PropertyValue(bool boolean)
        : value(boolean) {}
    PropertyValue(int number)
        : value(std::int64_t{number}) {}
    PropertyValue(std::int64_t number)
        : value(number) {}
    PropertyValue(double number)
        : value(number) {}
    PropertyValue(const char* text)
        : value(std::string(text)) {}
    PropertyValue(std::string text)
        : value(std::move(text)) {}
    PropertyValue(Data data)
        : value(std::move(data)) {}
    PropertyValue(Array array)
        : value(std::move(array)) {}
    PropertyValue(Dictionary dictionary)
        : value(std::move(dictionary)) {}

    /// The value if it has that type, else nullptr.
    template <typename T>
    const T* as() const {
        return std::get_if<T>(&value);
    }

    bool operator==(const PropertyValue&) const = default;
};

} // namespace larkspan
