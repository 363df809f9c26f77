#include "settings/BarLook.h"

#include "MemoryDefaults.h"
#include "settings/RawValues.h"

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <gtest/gtest.h>

namespace larkspan {
namespace {

using Array = PropertyValue::Array;

std::string describe(const std::optional<DotColor>& color) {
    return color ? fmt::format("{}", *color) : "built in";
}

/// The whole appearance as one line, so that a case compares everything it must not have touched.
std::string describe(const BarLook& look) {
    std::string tools;
    for (const auto tool : *look.tools)
        tools += fmt::format("{} ", rawValue(tool));
    return fmt::format("{} {} blur {} round {} inset {} padding {} dot {} gray {} trash {} | {}",
                       rawValue(*look.style), rawValue(*look.glass), *look.glassBlur,
                       *look.islandRoundness, *look.islandInset, *look.islandPadding,
                       describe(*look.dotColor), describe(*look.dotGray), *look.showsTrash, tools);
}

constexpr const char* factoryTools = "clipboard screenshot keepAwake settings ";

std::string factory(const std::string& style, const std::string& tools = factoryTools) {
    return style +
           " clear blur 4.5 round 0.68 inset 0 padding 14 dot built in gray built in trash true "
           "| " +
           tools;
}

struct ReadCase {
    const char* name;
    const char* key;
    PropertyValue stored;
    const char* property;
    std::string reads;
};

std::string property(const BarLook& look, std::string_view name) {
    if (name == "style") return std::string(rawValue(*look.style));
    if (name == "glass") return std::string(rawValue(*look.glass));
    if (name == "blur") return fmt::format("{}", *look.glassBlur);
    if (name == "roundness") return fmt::format("{}", *look.islandRoundness);
    if (name == "inset") return fmt::format("{}", *look.islandInset);
    if (name == "dot") return describe(*look.dotColor);
    if (name == "trash") return fmt::format("{}", *look.showsTrash);
    std::string tools;
    for (const auto tool : *look.tools)
        tools += fmt::format("{} ", rawValue(tool));
    return tools;
}

TEST(BarLook, NothingStoredGivesTheFactoryLook) {
    MemoryDefaults defaults;
    EXPECT_EQ(describe(BarLook(defaults, true)), factory("island"));
    EXPECT_EQ(describe(BarLook(defaults, false)), factory("bar"));
    EXPECT_TRUE(defaults.values.empty()) << "reading must not write";
}

TEST(BarLook, StoredValuesAreAcceptedByTheirRules) {
    const ReadCase cases[] = {
        {"a named style", "style", "bar", "style", "bar"},
        {"an unknown style", "style", "Bar", "style", "island"},
        {"a style of another type", "style", 1, "style", "island"},
        {"frosted glass", "glass", "regular", "glass", "regular"},
        {"unknown glass", "glass", "frosted", "glass", "clear"},
        {"too little blur", "glassBlur", 1.0, "blur", "3"},
        {"whole-number blur", "glassBlur", 12, "blur", "12"},
        {"blur as a string", "glassBlur", "9", "blur", "4.5"},
        {"blur as a truth value", "glassBlur", true, "blur", "4.5"},
        {"roundness beyond 1", "islandRoundness", 1.5, "roundness", "1.5"},
        {"a negative inset", "islandInset", -4, "inset", "-4"},
        {"four numbers", "dotColorRGBA", Array{1, 0.5, 0, 1}, "dot", "[1, 0.5, 0, 1]"},
        {"three numbers", "dotColorRGBA", Array{1, 0.5, 0}, "dot", "built in"},
        {"five numbers", "dotColorRGBA", Array{1, 1, 1, 1, 1}, "dot", "built in"},
        {"a word among numbers", "dotColorRGBA", Array{1, "1", 0, 1}, "dot", "built in"},
        {"no Trash", "showsTrash", false, "trash", "false"},
        {"Trash as a number", "showsTrash", 0, "trash", "true"},
        {"tools out of order", "tools", Array{"xcode", "widgets", "hammer"}, "tools",
         "widgets xcode settings "},
        {"no tools", "tools", Array{}, "tools", "settings "},
        {"a tool twice", "tools", Array{"clipboard", "clipboard"}, "tools", "clipboard settings "},
        {"tools of another type", "tools", "clipboard", "tools", factoryTools},
        {"a number among tools", "tools", Array{"xcode", 3}, "tools", factoryTools},
    };
    for (const auto& [name, key, stored, asked, reads] : cases) {
        MemoryDefaults defaults;
        defaults.set(key, stored);
        EXPECT_EQ(property(BarLook(defaults, true), asked), reads) << name;
    }
}

TEST(BarLook, WithoutIslandsAStoredIslandReadsAsBar) {
    MemoryDefaults defaults;
    defaults.set("style", "island");
    EXPECT_EQ(*BarLook(defaults, false).style, BarStyle::bar);
}

TEST(BarLook, EachChangeIsStoredAtOnce) {
    MemoryDefaults defaults;
    BarLook look(defaults, true);
    look.style.set(BarStyle::bar);
    look.glass.set(GlassKind::regular);
    look.glassBlur.set(8);
    look.islandRoundness.set(0.5);
    look.islandInset.set(6);
    look.islandPadding.set(10);
    look.dotColor.set(DotColor{1, 0, 0, 1});
    look.tools.set({BarTool::xcode, BarTool::settings});
    look.showsTrash.set(false);
    const decltype(defaults.values) expected{
        {"style", "bar"},
        {"glass", "regular"},
        {"glassBlur", 8.0},
        {"islandRoundness", 0.5},
        {"islandInset", 6.0},
        {"islandPadding", 10.0},
        {"dotColorRGBA", Array{1.0, 0.0, 0.0, 1.0}},
        {"tools", Array{"xcode", "settings"}},
        {"showsTrash", false},
    };
    EXPECT_EQ(defaults.values, expected);
    EXPECT_EQ(describe(BarLook(defaults, true)), describe(look)) << "a restart changes the look";
}

TEST(BarLook, ABuiltInColorIsAnAbsentKey) {
    MemoryDefaults defaults;
    BarLook look(defaults, true);
    look.dotGray.set(DotColor{0, 0, 0, 1});
    look.dotGray.set(std::nullopt);
    EXPECT_FALSE(defaults.values.contains("dotGrayRGBA"));
}

TEST(BarLook, ResetLeavesHeightToolsAndTrash) {
    MemoryDefaults defaults;
    defaults.set("barHeight", 90.0);
    defaults.set("showsTrash", false);
    defaults.set("tools", Array{"xcode"});
    defaults.set("style", "bar");
    defaults.set("dotColorRGBA", Array{1, 1, 1, 1});
    defaults.set("islandPadding", 2);
    BarLook look(defaults, true);
    look.resetAppearance();
    EXPECT_EQ(describe(look), "island clear blur 4.5 round 0.68 inset 0 padding 14 dot built in "
                              "gray built in trash false | xcode settings ");
    EXPECT_EQ(defaults.value("barHeight"), PropertyValue(90.0));
    EXPECT_EQ(defaults.value("style"), PropertyValue("island"));
    EXPECT_EQ(defaults.value("islandPadding"), PropertyValue(14.0));
    EXPECT_FALSE(defaults.values.contains("dotColorRGBA"));
}

} // namespace
} // namespace larkspan
