#include "settings/Setting.h"

#include <algorithm>

namespace larkspan {
namespace {

using Kind = Setting::Kind;
using Pane = Setting::Pane;

// One table, as long as there are settings.
std::vector<Setting> makeTable(bool hasIslands) { // NOLINT(readability-function-size)
    std::vector<Setting::Choice> styles{{"bar", "Bar"}};
    if (hasIslands) styles.push_back({"island", "Island"});
    return {
        {.key = "mode",
         .kind = Kind::choice,
         .choices = {{"vantrel"}, {"systemDock"}},
         .initial = "vantrel"},
        {.key = "style",
         .kind = Kind::choice,
         .pane = Pane::appearance,
         .title = "Style",
         .choices = styles,
         .initial = std::string(styles.back().word)},
        {.key = "glass",
         .kind = Kind::choice,
         .pane = Pane::appearance,
         .title = "Glass",
         .choices = {{"clear", "Clear"}, {"regular", "Frosted"}},
         .initial = "clear"},
        {.key = "glassBlur",
         .kind = Kind::number,
         .pane = Pane::appearance,
         .title = "Glass blur",
         .bounds = {3, 60, "points"},
         .raisesStored = true,
         .initial = 4.5},
        {.key = "islandRoundness",
         .kind = Kind::number,
         .pane = Pane::appearance,
         .title = "Island roundness",
         .sentence = "0 % gives square corners; 100 % makes the ends half circles.",
         .bounds = {0, 1},
         .initial = 0.68},
        {.key = "islandInset",
         .kind = Kind::number,
         .pane = Pane::appearance,
         .title = "Island inset",
         .bounds = {0, 100, "points"},
         .initial = 0.0},
        {.key = "islandPadding",
         .kind = Kind::number,
         .pane = Pane::appearance,
         .title = "Island padding",
         .bounds = {0, 60, "points"},
         .initial = 14.0},
        {.key = "dotColorRGBA",
         .kind = Kind::color,
         .pane = Pane::appearance,
         .title = "First dot color",
         .sentence = "The app in front gets a longer dot. With one display, every dot takes the "
                     "first color."},
        {.key = "dotGrayRGBA",
         .kind = Kind::color,
         .pane = Pane::appearance,
         .title = "Second dot color"},
        {.key = "tools",
         .kind = Kind::list,
         .pane = Pane::tools,
         .title = "Tools",
         .choices = {{"widgets", "Widgets"},
                     {"clipboard", "Clipboard"},
                     {"screenshot", "Screenshot"},
                     {"xcode", "DerivedData"},
                     {"keepAwake", "Keep Awake"},
                     {"settings", "Settings"}},
         .alwaysListed = "settings",
         .initial = PropertyValue::Array{"clipboard", "screenshot", "keepAwake", "settings"}},
        {.key = "showsTrash",
         .kind = Kind::flag,
         .pane = Pane::general,
         .title = "Show Trash",
         .initial = true},
        {.key = "barHeight",
         .kind = Kind::number,
         .pane = Pane::general,
         .title = "Height",
         .bounds = {24, 200, "points"}},
        {.key = "previewsSingleWindows",
         .kind = Kind::flag,
         .pane = Pane::general,
         .title = "Show a preview of a single window",
         .sentence = "When this is off, pointing at an app with one window shows only its name.",
         .initial = true},
        // The Dock's own icon size, as its fraction.
        {.key = "syncedTileSize", .kind = Kind::number},
    };
}

} // namespace

const std::vector<Setting>& settingsTable(bool hasIslands) {
    static const std::vector<Setting> withIslands = makeTable(true);
    static const std::vector<Setting> withoutIslands = makeTable(false);
    return hasIslands ? withIslands : withoutIslands;
}

const Setting* findSetting(const std::vector<Setting>& table, std::string_view key) {
    const auto found = std::ranges::find(table, key, &Setting::key);
    return found == table.end() ? nullptr : &*found;
}

std::optional<std::size_t> choiceIndex(const Setting& setting, std::string_view word) {
    const auto found = std::ranges::find(setting.choices, word, &Setting::Choice::word);
    if (found == setting.choices.end()) return std::nullopt;
    return static_cast<std::size_t>(found - setting.choices.begin());
}

} // namespace larkspan
