#include "control/NamedSettings.h"

#include "app/AppController.h"
#include "platform/numberFromText.h"
#include "settings/RawValues.h"

#include <fmt/format.h>
#include <functional>
#include <nlohmann/json.hpp>
#include <vector>

namespace larkspan {
namespace {

using nlohmann::json;
using Complaint = std::optional<std::string>;

/// The word that takes a setting back to what the system gives it.
constexpr std::string_view defaultWord = "default";

/// The values a person may choose; what is stored by hand is not held to them.
struct Range {
    double least;
    double most;
};

struct Setting {
    std::string_view key;
    std::function<json(AppController&)> get;
    std::function<Complaint(AppController&, std::string_view)> set;
};

std::vector<std::string_view> splitWords(std::string_view text) {
    std::vector<std::string_view> parts;
    while (!text.empty()) {
        const auto comma = text.find(',');
        if (comma != 0) parts.push_back(text.substr(0, comma));
        text.remove_prefix(comma == std::string_view::npos ? text.size() : comma + 1);
    }
    return parts;
}

template <typename Enumeration>
Setting choice(std::string_view key, Observed<Enumeration> BarLook::*property,
               std::string_view choices) {
    return {key, [=](AppController& app) { return json(rawValue(*(app.look().*property))); },
            [=](AppController& app, std::string_view text) -> Complaint {
                const auto value = fromRawValue<Enumeration>(text);
                if (!value) return fmt::format("{} is {}", key, choices);
                (app.look().*property).set(*value);
                return std::nullopt;
            }};
}

Complaint outside(std::string_view key, Range range) {
    return fmt::format("{} is a number from {} to {}", key, range.least, range.most);
}

std::optional<double> parseWithin(std::string_view text, Range range) {
    const auto number = numberFromText(text);
    const bool fits = number && *number >= range.least && *number <= range.most;
    return fits ? number : std::nullopt;
}

Setting number(std::string_view key, Observed<double> BarLook::*property, Range range) {
    return {key, [=](AppController& app) { return json(*(app.look().*property)); },
            [=](AppController& app, std::string_view text) -> Complaint {
                const auto value = parseWithin(text, range);
                if (!value) return outside(key, range);
                (app.look().*property).set(*value);
                return std::nullopt;
            }};
}

std::optional<DotColor> parseColor(std::string_view text) {
    const auto parts = splitWords(text);
    DotColor color{};
    if (parts.size() != color.size()) return std::nullopt;
    for (std::size_t i = 0; i < color.size(); ++i) {
        const auto part = parseWithin(parts[i], {0, 1});
        if (!part) return std::nullopt;
        color[i] = *part;
    }
    return color;
}

Setting color(std::string_view key, Observed<std::optional<DotColor>> BarLook::*property) {
    return {key,
            [=](AppController& app) {
                const auto& value = *(app.look().*property);
                return value ? json(*value) : json(nullptr);
            },
            [=](AppController& app, std::string_view text) -> Complaint {
                const auto value = parseColor(text);
                if (!value && text != defaultWord)
                    return fmt::format("{} is red,green,blue,alpha, each from 0 to 1, or {}", key,
                                       defaultWord);
                (app.look().*property).set(value);
                return std::nullopt;
            }};
}

std::optional<bool> parseBool(std::string_view text) {
    if (text == "true") return true;
    if (text == "false") return false;
    return std::nullopt;
}

Complaint setStyle(AppController& app, std::string_view text) {
    const auto style = fromRawValue<BarStyle>(text);
    if (!style) return "style is bar or island";
    if (*style == BarStyle::island && !app.look().hasIslands()) return "this system has no islands";
    app.look().style.set(*style);
    return std::nullopt;
}

Complaint setTools(AppController& app, std::string_view text) {
    std::vector<BarTool> named;
    for (const auto word : splitWords(text)) {
        const auto tool = fromRawValue<BarTool>(word);
        if (!tool) return fmt::format("there is no tool named {}", word);
        named.push_back(*tool);
    }
    app.look().tools.set(canonicalTools(named));
    return std::nullopt;
}

json toolNames(AppController& app) {
    json names = json::array();
    for (const auto tool : *app.look().tools)
        names.push_back(rawValue(tool));
    return names;
}

Complaint setBarHeight(AppController& app, std::string_view text) {
    constexpr Range range{24, 200};
    const auto height = parseWithin(text, range);
    if (!height && text != defaultWord)
        return *outside("barHeight", range) + ", or " + std::string(defaultWord);
    app.setBarHeight(height);
    return std::nullopt;
}

Complaint setTrash(AppController& app, std::string_view text) {
    const auto shows = parseBool(text);
    if (!shows) return "showsTrash is true or false";
    app.look().showsTrash.set(*shows);
    return std::nullopt;
}

Complaint setSinglePreviews(AppController& app, std::string_view text) {
    const auto shows = parseBool(text);
    if (!shows) return "previewsSingleWindows is true or false";
    app.settings().setPreviewsSingleWindows(*shows);
    return std::nullopt;
}

json storedHeight(AppController& app) {
    const auto height = app.settings().barHeight();
    return height ? json(*height) : json(nullptr);
}

std::vector<Setting> makeSettings() {
    return {
        {"style", [](AppController& app) { return json(rawValue(*app.look().style)); }, setStyle},
        choice("glass", &BarLook::glass, "clear or regular"),
        number("glassBlur", &BarLook::glassBlur, {BarLook::minimumGlassBlur, 60}),
        number("islandRoundness", &BarLook::islandRoundness, {0, 1}),
        number("islandInset", &BarLook::islandInset, {0, 100}),
        number("islandPadding", &BarLook::islandPadding, {0, 60}),
        color("dotColorRGBA", &BarLook::dotColor),
        color("dotGrayRGBA", &BarLook::dotGray),
        {"tools", toolNames, setTools},
        {"showsTrash", [](AppController& app) { return json(*app.look().showsTrash); }, setTrash},
        {"barHeight", storedHeight, setBarHeight},
        {"previewsSingleWindows",
         [](AppController& app) { return json(app.settings().previewsSingleWindows()); },
         setSinglePreviews},
    };
}

std::optional<Setting> findSetting(std::string_view key) {
    for (auto& setting : makeSettings())
        if (setting.key == key) return std::move(setting);
    return std::nullopt;
}

} // namespace

std::optional<json> namedSetting(AppController& controller, std::string_view key) {
    const auto setting = findSetting(key);
    return setting ? std::optional(setting->get(controller)) : std::nullopt;
}

std::optional<std::string> setNamedSetting(AppController& controller, std::string_view key,
                                           std::string_view text) {
    const auto setting = findSetting(key);
    if (!setting) return fmt::format("there is no setting named {}", key);
    return setting->set(controller, text);
}

json allSettings(AppController& controller) {
    json all = json::object();
    for (const auto& setting : makeSettings())
        all[std::string(setting.key)] = setting.get(controller);
    return all;
}

} // namespace larkspan
