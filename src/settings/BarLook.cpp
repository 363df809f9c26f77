#include "settings/BarLook.h"

#include "settings/RawValues.h"
#include "settings/StoredValue.h"

#include <algorithm>
#include <string>

namespace larkspan {
namespace {

constexpr std::array canonicalOrder{BarTool::widgets, BarTool::clipboard, BarTool::screenshot,
                                    BarTool::xcode,   BarTool::keepAwake, BarTool::settings};
constexpr double defaultGlassBlur = 4.5;
constexpr double defaultRoundness = 0.68;
constexpr double defaultInset = 0;
constexpr double defaultPadding = 14;

std::optional<DotColor> readColor(const UserDefaults& defaults, std::string_view key) {
    const auto numbers = storedNumbers(defaults, key);
    if (!numbers || numbers->size() != std::tuple_size_v<DotColor>) return std::nullopt;
    DotColor color{};
    std::copy(numbers->begin(), numbers->end(), color.begin());
    return color;
}

std::vector<BarTool> readTools(const UserDefaults& defaults) {
    const auto words = storedStrings(defaults, "tools");
    if (!words)
        return {BarTool::clipboard, BarTool::screenshot, BarTool::keepAwake, BarTool::settings};
    std::vector<BarTool> named;
    for (const auto& word : *words)
        if (const auto tool = fromRawValue<BarTool>(word)) named.push_back(*tool);
    return canonicalTools(named);
}

PropertyValue number(double value) {
    return value;
}

template <typename Enumeration>
PropertyValue word(Enumeration value) {
    return std::string(rawValue(value));
}

PropertyValue words(const std::vector<BarTool>& tools) {
    PropertyValue::Array array;
    for (const auto tool : tools)
        array.push_back(word(tool));
    return array;
}

std::optional<PropertyValue> color(const std::optional<DotColor>& value) {
    if (!value) return std::nullopt;
    return PropertyValue::Array(value->begin(), value->end());
}

} // namespace

std::vector<BarTool> canonicalTools(const std::vector<BarTool>& named) {
    std::vector<BarTool> tools;
    for (const auto tool : canonicalOrder) {
        const bool isNamed = std::find(named.begin(), named.end(), tool) != named.end();
        if (isNamed || tool == BarTool::settings) tools.push_back(tool);
    }
    return tools;
}

BarLook::BarLook(UserDefaults& defaults, bool hasIslands)
    : defaults_(defaults)
    , hasIslands_(hasIslands) {
    read();
    writeChanges();
}

void BarLook::read() {
    const auto isStored = [this](std::string_view key, std::string_view raw) {
        return storedString(defaults_, key) == raw;
    };
    const bool isBar = !hasIslands_ || isStored("style", rawValue(BarStyle::bar));
    const bool isFrosted = isStored("glass", rawValue(GlassKind::regular));
    const auto numberOr = [this](std::string_view key, double otherwise) {
        return storedNumber(defaults_, key).value_or(otherwise);
    };
    style.set(isBar ? BarStyle::bar : BarStyle::island);
    glass.set(isFrosted ? GlassKind::regular : GlassKind::clear);
    glassBlur.set(std::max(minimumGlassBlur, numberOr("glassBlur", defaultGlassBlur)));
    islandRoundness.set(numberOr("islandRoundness", defaultRoundness));
    islandInset.set(numberOr("islandInset", defaultInset));
    islandPadding.set(numberOr("islandPadding", defaultPadding));
    dotColor.set(readColor(defaults_, "dotColorRGBA"));
    dotGray.set(readColor(defaults_, "dotGrayRGBA"));
    tools.set(readTools(defaults_));
    showsTrash.set(storedBool(defaults_, "showsTrash").value_or(true));
}

template <typename T, typename Convert>
void BarLook::write(Observed<T>& property, std::string_view key, Convert convert) {
    writes_.push_back(property.observe([this, &property, key, convert] {
        const std::optional<PropertyValue> value = convert(*property);
        if (value)
            defaults_.set(key, *value);
        else
            defaults_.remove(key);
    }));
}

void BarLook::writeChanges() {
    write(style, "style", word<BarStyle>);
    write(glass, "glass", word<GlassKind>);
    write(glassBlur, "glassBlur", number);
    write(islandRoundness, "islandRoundness", number);
    write(islandInset, "islandInset", number);
    write(islandPadding, "islandPadding", number);
    write(dotColor, "dotColorRGBA", color);
    write(dotGray, "dotGrayRGBA", color);
    write(tools, "tools", words);
    write(showsTrash, "showsTrash", [](bool shows) { return PropertyValue(shows); });
}

void BarLook::resetAppearance() {
    style.set(hasIslands_ ? BarStyle::island : BarStyle::bar);
    glass.set(GlassKind::clear);
    glassBlur.set(defaultGlassBlur);
    islandRoundness.set(defaultRoundness);
    islandInset.set(defaultInset);
    islandPadding.set(defaultPadding);
    dotColor.set(std::nullopt);
    dotGray.set(std::nullopt);
}

} // namespace larkspan
