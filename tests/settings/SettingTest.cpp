#include "settings/SettingValue.h"

#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <sstream>

namespace larkspan {
namespace {

using Array = PropertyValue::Array;

const Setting& row(const char* key, bool hasIslands = true) {
    return *findSetting(settingsTable(hasIslands), key);
}

TEST(Setting, StoredValuesAreAcceptedByTheirRules) {
    const Array usualTools{"clipboard", "screenshot", "keepAwake", "settings"};
    struct Case {
        const char* key;
        PropertyValue stored;
        SettingValue reads;
    };
    const Case cases[] = {
        {"mode", "systemDock", "systemDock"},
        {"mode", "SystemDock", "vantrel"},
        {"mode", "", "vantrel"},
        {"mode", 1, "vantrel"},
        {"style", "bar", "bar"},
        {"style", "Bar", "island"},
        {"style", 1, "island"},
        {"glass", "regular", "regular"},
        {"glass", "frosted", "clear"},
        {"glassBlur", 1.0, 3.0},
        {"glassBlur", 12, 12.0},
        {"glassBlur", 90, 90.0},
        {"glassBlur", "9", 4.5},
        {"glassBlur", true, 4.5},
        {"glassBlur", std::numeric_limits<double>::infinity(), 4.5},
        {"islandRoundness", 1.5, 1.5},
        {"islandInset", -4, -4.0},
        {"dotColorRGBA", Array{1, 0.5, 0, 1}, Array{1.0, 0.5, 0.0, 1.0}},
        {"dotColorRGBA", Array{1, 0.5, 0}, std::nullopt},
        {"dotColorRGBA", Array{1, 1, 1, 1, 1}, std::nullopt},
        {"dotColorRGBA", Array{1, "1", 0, 1}, std::nullopt},
        {"tools", Array{"xcode", "widgets", "hammer"}, Array{"widgets", "xcode", "settings"}},
        {"tools", Array{"clipboard", "clipboard"}, Array{"clipboard", "settings"}},
        {"tools", Array{}, Array{"settings"}},
        {"tools", "clipboard", usualTools},
        {"tools", Array{"xcode", 3}, usualTools},
        {"showsTrash", false, false},
        {"showsTrash", 0, true},
        {"barHeight", 90, 90.0},
        {"barHeight", 7.5, 7.5},
        {"barHeight", "90", std::nullopt},
        {"barHeight", true, std::nullopt},
        {"syncedTileSize", -0.05, -0.05},
    };
    for (const auto& [key, stored, reads] : cases)
        EXPECT_EQ(acceptStored(row(key), stored), reads) << key;
}

TEST(Setting, WithoutIslandsTheStyleIsAlwaysBar) {
    for (const auto& stored : {SettingValue(), SettingValue("island"), SettingValue("bar")})
        EXPECT_EQ(acceptStored(row("style", false), stored), "bar");
    EXPECT_FALSE(parseSetting(row("style", false), "island"));
    EXPECT_EQ(acceptedText(row("style", false)), "bar");
}

TEST(Setting, OnlyWhatMayBeChosenIsParsed) {
    struct Case {
        const char* key;
        const char* text;
        SettingValue value;
    };
    const Case accepted[] = {
        {"style", "bar", "bar"},
        {"glassBlur", "3", 3.0},
        {"glassBlur", "60", 60.0},
        {"islandRoundness", "0.25", 0.25},
        {"dotColorRGBA", "1,0.5,0,1", Array{1.0, 0.5, 0.0, 1.0}},
        {"dotColorRGBA", "default", std::nullopt},
        {"tools", "xcode,widgets", Array{"widgets", "xcode", "settings"}},
        {"tools", "", Array{"settings"}},
        {"showsTrash", "false", false},
        {"barHeight", "24", 24.0},
        {"barHeight", "default", std::nullopt},
    };
    for (const auto& [key, text, value] : accepted) {
        const auto parsed = parseSetting(row(key), text);
        ASSERT_TRUE(parsed) << key << " " << text;
        EXPECT_EQ(*parsed, value) << key << " " << text;
    }
    const std::pair<const char*, const char*> refused[] = {
        {"style", "Bar"},        {"style", "default"},          {"glassBlur", "2.9"},
        {"glassBlur", "60.1"},   {"glassBlur", "nan"},          {"glassBlur", "5 points"},
        {"glassBlur", ""},       {"islandRoundness", "1.1"},    {"islandInset", "101"},
        {"islandPadding", "-1"}, {"dotColorRGBA", "1,1,1"},     {"dotColorRGBA", "1,1,1,2"},
        {"dotGrayRGBA", "red"},  {"tools", "clipboard,hammer"}, {"showsTrash", "yes"},
        {"barHeight", "23"},     {"barHeight", "201"},
    };
    for (const auto& [key, text] : refused)
        EXPECT_FALSE(parseSetting(row(key), text)) << key << " " << text;
}

TEST(Setting, EachRowIsWhole) {
    for (const auto& setting : settingsTable(true)) {
        EXPECT_EQ(acceptStored(setting, setting.initial), setting.initial) << setting.key;
        EXPECT_EQ(setting.title.empty(), !setting.isOffered()) << setting.key;
        for (const auto& choice : setting.choices)
            EXPECT_EQ(choice.title.empty(), !setting.isOffered()) << choice.word;
    }
}

/// The cells of each row of the guide's table of settings, without the marks around code.
std::map<std::string, std::vector<std::string>> guideRows() {
    std::ifstream page(LARKSPAN_CONTROL_PAGE);
    std::map<std::string, std::vector<std::string>> rows;
    bool isThere = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("## ")) isThere = line == "## Settings";
        if (!isThere || !line.starts_with("| `")) continue;
        std::erase(line, '`');
        std::vector<std::string> cells;
        std::istringstream row(line.substr(1));
        for (std::string cell; std::getline(row, cell, '|');)
            cells.push_back(cell.substr(cell.find_first_not_of(' '), cell.find_last_not_of(' ')));
        rows[cells.front()] = cells;
    }
    return rows;
}

TEST(Setting, TheGuideListsEachWithItsValuesAndDefault) {
    auto rows = guideRows();
    for (const auto& setting : settingsTable(true)) {
        if (!setting.isOffered()) continue;
        const auto cells = rows[std::string(setting.key)];
        ASSERT_EQ(cells.size(), 4U) << setting.key;
        EXPECT_EQ(cells[1], acceptedText(setting)) << setting.key;
        const auto initial = parseSetting(setting, cells[2]);
        ASSERT_TRUE(initial) << setting.key;
        EXPECT_EQ(*initial, setting.initial) << setting.key;
        rows.erase(std::string(setting.key));
    }
    EXPECT_TRUE(rows.empty()) << rows.begin()->first << " is not a setting";
}

} // namespace
} // namespace larkspan
