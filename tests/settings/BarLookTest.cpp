#include "settings/BarLook.h"

#include "MemoryDefaults.h"
#include "settings/BarSettings.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace larkspan {
namespace {

using Array = PropertyValue::Array;

struct StoredLook {
    explicit StoredLook(UserDefaults& defaults, bool hasIslands = true)
        : settings(defaults, hasIslands)
        , look(settings) {}

    /// Of every property; the rest are defaults that no bar watches.
    std::map<std::string, SettingValue> values() const {
        std::map<std::string, SettingValue> all;
        for (const auto& setting : settings.table())
            if (look.has(setting)) all[std::string(setting.key)] = look.value(setting);
        return all;
    }

    BarSettings settings;
    BarLook look;
};

TEST(BarLook, ReadingDoesNotWrite) {
    MemoryDefaults defaults;
    const StoredLook stored(defaults);
    EXPECT_EQ(*stored.look.style, BarStyle::island);
    EXPECT_EQ(*StoredLook(defaults, false).look.style, BarStyle::bar);
    EXPECT_EQ(*stored.look.tools, (std::vector{BarTool::clipboard, BarTool::screenshot,
                                               BarTool::keepAwake, BarTool::settings}));
    EXPECT_EQ(*stored.look.dotColor, std::nullopt);
    EXPECT_TRUE(defaults.values.empty());
}

TEST(BarLook, EachChangeIsStoredAtOnce) {
    MemoryDefaults defaults;
    StoredLook stored(defaults);
    auto& look = stored.look;
    look.style.set(BarStyle::bar);
    look.glass.set(GlassKind::regular);
    look.glassBlur.set(8);
    look.islandRoundness.set(0.5);
    look.islandInset.set(6);
    look.islandPadding.set(10);
    look.dotColor.set(DotColor{1, 0, 0, 1});
    look.dotGray.set(DotColor{0, 0, 0, 1});
    look.dotGray.set(std::nullopt);
    look.tools.set({BarTool::widgets, BarTool::clipboard, BarTool::screenshot, BarTool::xcode,
                    BarTool::keepAwake, BarTool::settings});
    look.showsTrash.set(false);
    const decltype(defaults.values) expected{
        {"style", "bar"},
        {"glass", "regular"},
        {"glassBlur", 8.0},
        {"islandRoundness", 0.5},
        {"islandInset", 6.0},
        {"islandPadding", 10.0},
        {"dotColorRGBA", Array{1.0, 0.0, 0.0, 1.0}},
        {"tools", Array{"widgets", "clipboard", "screenshot", "xcode", "keepAwake", "settings"}},
        {"showsTrash", false},
    };
    EXPECT_EQ(defaults.values, expected);
    EXPECT_EQ(StoredLook(defaults).values(), stored.values()) << "a restart changes the look";
}

TEST(BarLook, ResetLeavesHeightToolsAndTrash) {
    MemoryDefaults defaults;
    defaults.values = {{"barHeight", 90.0},
                       {"showsTrash", false},
                       {"tools", Array{"xcode"}},
                       {"style", "bar"},
                       {"glass", "regular"},
                       {"glassBlur", 20.0},
                       {"islandRoundness", 0.1},
                       {"islandInset", 4.0},
                       {"islandPadding", 2},
                       {"dotColorRGBA", Array{1, 1, 1, 1}},
                       {"dotGrayRGBA", Array{1, 1, 1, 1}}};
    StoredLook(defaults).look.resetAppearance();
    const decltype(defaults.values) expected{
        {"barHeight", 90.0},       {"showsTrash", false}, {"tools", Array{"xcode"}},
        {"style", "island"},       {"glass", "clear"},    {"glassBlur", 4.5},
        {"islandRoundness", 0.68}, {"islandInset", 0.0},  {"islandPadding", 14.0}};
    EXPECT_EQ(defaults.values, expected);
}

} // namespace
} // namespace larkspan
