#include "settings/BarLook.h"

#include "settings/BarSettings.h"

#include <algorithm>
#include <string>
#include <type_traits>
#include <variant>

namespace larkspan {
namespace {

using Array = PropertyValue::Array;

// Converts between the types of the properties and those of the table. An accepted value always has
// the type of its row.

template <typename Enumeration>
Enumeration choiceFrom(const Setting& setting, const PropertyValue& value) {
    return static_cast<Enumeration>(
        choiceIndex(setting, std::get<std::string>(value.value)).value());
}

template <typename Enumeration>
PropertyValue wordOf(const Setting& setting, Enumeration choice) {
    return std::string(setting.choices.at(static_cast<std::size_t>(choice)).word);
}

template <typename T>
void convert(const Setting& setting, const SettingValue& value, T& typed) {
    if constexpr (std::is_enum_v<T>)
        typed = choiceFrom<T>(setting, value.value());
    else
        typed = std::get<T>(value.value().value);
}

void convert(const Setting&, const SettingValue& value, std::optional<DotColor>& typed) {
    typed.reset();
    if (!value) return;
    const auto number = [](const PropertyValue& part) { return std::get<double>(part.value); };
    std::ranges::transform(std::get<Array>(value->value), typed.emplace().begin(), number);
}

void convert(const Setting& setting, const SettingValue& value, std::vector<BarTool>& typed) {
    typed.clear();
    for (const auto& word : std::get<Array>(value.value().value))
        typed.push_back(choiceFrom<BarTool>(setting, word));
}

template <typename T>
SettingValue valueOf(const Setting& setting, const T& typed) {
    if constexpr (std::is_enum_v<T>)
        return wordOf(setting, typed);
    else
        return PropertyValue(typed);
}

SettingValue valueOf(const Setting&, const std::optional<DotColor>& typed) {
    if (!typed) return std::nullopt;
    return Array(typed->begin(), typed->end());
}

SettingValue valueOf(const Setting& setting, const std::vector<BarTool>& typed) {
    Array words;
    for (const auto tool : typed)
        words.push_back(wordOf(setting, tool));
    return words;
}

} // namespace

BarLook::BarLook(BarSettings& settings)
    : settings_(settings) {
    add("style", style);
    add("glass", glass);
    add("glassBlur", glassBlur);
    add("islandRoundness", islandRoundness);
    add("islandInset", islandInset);
    add("islandPadding", islandPadding);
    add("dotColorRGBA", dotColor);
    add("dotGrayRGBA", dotGray);
    add("tools", tools);
    add("showsTrash", showsTrash);
}

template <typename T>
void BarLook::add(std::string_view key, Observed<T>& property) {
    const Setting& setting = settings_.row(key);
    const auto get = [&setting, &property] { return valueOf(setting, *property); };
    const auto set = [&setting, &property](const SettingValue& value) {
        T typed{};
        convert(setting, value, typed);
        property.set(std::move(typed));
    };
    set(settings_.value(setting));
    auto write = property.observe([this, &setting, get] { settings_.set(setting, get()); });
    properties_.push_back({&setting, get, set, std::move(write)});
}

const BarLook::Property* BarLook::find(const Setting& setting) const {
    const auto found = std::ranges::find(properties_, &setting, &Property::setting);
    return found == properties_.end() ? nullptr : &*found;
}

SettingValue BarLook::value(const Setting& setting) const {
    return find(setting)->get();
}

void BarLook::set(const Setting& setting, const SettingValue& value) {
    find(setting)->set(value);
}

void BarLook::resetAppearance() {
    for (const auto& property : properties_)
        if (property.setting->pane == Setting::Pane::appearance)
            property.set(property.setting->initial);
}

} // namespace larkspan
