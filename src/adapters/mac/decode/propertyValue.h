#pragma once

#include "adapters/mac/decode/ValueView.h"

namespace larkspan::mac {

/// A property list's value with its types. Absent for what `PropertyValue` does not support, such
/// as a date; in an array or a dictionary such a value is skipped, and so is what is nested deeper
/// than `depth`.
template <ValueView View>
std::optional<PropertyValue> propertyValue(const View& view, int depth = 64) {
    if (depth == 0) return std::nullopt;
    if (const auto boolean = view.boolean()) return PropertyValue(*boolean);
    if (const auto integer = view.integer()) return PropertyValue(*integer);
    if (const auto real = view.real()) return PropertyValue(*real);
    if (auto string = view.string()) return PropertyValue(*std::move(string));
    if (auto data = view.data()) return PropertyValue(*std::move(data));
    if (const auto elements = view.array()) {
        PropertyValue::Array array;
        for (const auto& element : *elements)
            if (auto value = propertyValue(element, depth - 1)) array.push_back(*std::move(value));
        return PropertyValue(std::move(array));
    }
    if (const auto members = view.dictionary()) {
        PropertyValue::Dictionary dictionary;
        for (const auto& [key, member] : *members)
            if (auto value = propertyValue(member, depth - 1))
                dictionary.insert_or_assign(key, *std::move(value));
        return PropertyValue(std::move(dictionary));
    }
    return std::nullopt;
}

} // namespace larkspan::mac
