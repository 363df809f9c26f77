#include "settings/SettingValue.h"

#include "platform/numberFromText.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fmt/format.h>
#include <vector>

namespace larkspan {
namespace {

using Kind = Setting::Kind;
using Array = PropertyValue::Array;
using Words = std::vector<std::string_view>;

constexpr std::size_t colorParts = 4;

/// The word that resets a setting to the system's value.
constexpr std::string_view defaultWord = "default";

std::optional<double> numberOf(const PropertyValue& value) {
    if (const auto* whole = value.as<std::int64_t>()) return static_cast<double>(*whole);
    if (const auto* real = value.as<double>(); real && std::isfinite(*real)) return *real;
    return std::nullopt;
}

SettingValue acceptColor(const PropertyValue& stored) {
    const auto* parts = stored.as<Array>();
    if (!parts || parts->size() != colorParts) return std::nullopt;
    Array color;
    for (const auto& part : *parts) {
        const auto number = numberOf(part);
        if (!number) return std::nullopt;
        color.emplace_back(*number);
    }
    return color;
}

/// Each of the choices that is among the words, in the row's order.
PropertyValue listOf(const Setting& setting, const Words& words) {
    Array list;
    for (const auto& choice : setting.choices)
        if (choice.word == setting.alwaysListed || std::ranges::count(words, choice.word) > 0)
            list.emplace_back(std::string(choice.word));
    return list;
}

SettingValue acceptList(const Setting& setting, const PropertyValue& stored) {
    const auto* array = stored.as<Array>();
    if (!array) return std::nullopt;
    Words words;
    for (const auto& value : *array) {
        const auto* word = value.as<std::string>();
        if (!word) return std::nullopt;
        words.push_back(*word);
    }
    return listOf(setting, words);
}

/// Absent if the stored value is not acceptable.
SettingValue accept(const Setting& setting, const PropertyValue& stored) {
    switch (setting.kind) {
    case Kind::choice: {
        const auto* word = stored.as<std::string>();
        return word && choiceIndex(setting, *word) ? SettingValue(*word) : std::nullopt;
    }
    case Kind::number: {
        const auto number = numberOf(stored);
        if (!number) return std::nullopt;
        return setting.raisesStored ? std::max(*number, setting.bounds.least) : *number;
    }
    case Kind::color:
        return acceptColor(stored);
    case Kind::list:
        return acceptList(setting, stored);
    case Kind::flag:
        return stored.as<bool>() ? SettingValue(stored) : std::nullopt;
    }
    return std::nullopt;
}

Words splitAtCommas(std::string_view text) {
    Words parts;
    while (!text.empty()) {
        const auto comma = text.find(',');
        if (comma != 0) parts.push_back(text.substr(0, comma));
        text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
    }
    return parts;
}

std::optional<double> parseWithin(std::string_view text, const Setting::Bounds& bounds) {
    const auto number = numberFromText(text);
    const bool fits = number && *number >= bounds.least && *number <= bounds.most;
    return fits ? number : std::nullopt;
}

SettingValue parseColor(std::string_view text) {
    const auto parts = splitAtCommas(text);
    if (parts.size() != colorParts) return std::nullopt;
    Array color;
    for (const auto part : parts) {
        const auto number = parseWithin(part, {0, 1});
        if (!number) return std::nullopt;
        color.emplace_back(*number);
    }
    return color;
}

/// Absent if the text is not a valid value.
SettingValue parse(const Setting& setting, std::string_view text) {
    switch (setting.kind) {
    case Kind::choice:
        return choiceIndex(setting, text) ? SettingValue(std::string(text)) : std::nullopt;
    case Kind::number:
        return parseWithin(text, setting.bounds);
    case Kind::color:
        return parseColor(text);
    case Kind::list: {
        const auto words = splitAtCommas(text);
        const auto isChoice = [&](auto word) { return choiceIndex(setting, word).has_value(); };
        return std::ranges::all_of(words, isChoice) ? SettingValue(listOf(setting, words))
                                                    : std::nullopt;
    }
    case Kind::flag:
        if (text == "true" || text == "false") return text == "true";
        return std::nullopt;
    }
    return std::nullopt;
}

std::string joined(const Setting& setting, std::string_view separator) {
    std::string text;
    for (const auto& choice : setting.choices)
        text += fmt::format("{}{}", text.empty() ? "" : separator, choice.word);
    return text;
}

std::string acceptedValues(const Setting& setting) {
    const auto& bounds = setting.bounds;
    switch (setting.kind) {
    case Kind::choice:
        return joined(setting, " or ");
    case Kind::number:
        return fmt::format("a number{} from {} to {}",
                           bounds.unit.empty() ? "" : fmt::format(" of {}", bounds.unit),
                           bounds.least, bounds.most);
    case Kind::color:
        return "red,green,blue,alpha, each from 0 to 1";
    case Kind::list:
        return "any of " + joined(setting, ",");
    case Kind::flag:
        return "true or false";
    }
    return {};
}

} // namespace

SettingValue acceptStored(const Setting& setting, const std::optional<PropertyValue>& stored) {
    auto accepted = stored ? accept(setting, *stored) : std::nullopt;
    return accepted ? accepted : setting.initial;
}

std::optional<SettingValue> parseSetting(const Setting& setting, std::string_view text) {
    if (!setting.initial && text == defaultWord) return SettingValue();
    const auto value = parse(setting, text);
    if (!value) return std::nullopt;
    return value;
}

std::string acceptedText(const Setting& setting) {
    const auto values = acceptedValues(setting);
    return setting.initial ? values : fmt::format("{}, or {}", values, defaultWord);
}

} // namespace larkspan
