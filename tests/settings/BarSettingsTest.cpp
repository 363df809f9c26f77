#include "settings/BarSettings.h"

#include "MemoryDefaults.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace larkspan {
namespace {

TEST(BarSettings, OnlyTheExactWordMeansTheSystemDock) {
    const std::pair<PropertyValue, BarMode> cases[] = {
        {"systemDock", BarMode::systemDock},
        {"vantrel", BarMode::vantrel},
        {"SystemDock", BarMode::vantrel},
        {"", BarMode::vantrel},
        {1, BarMode::vantrel},
    };
    for (const auto& [stored, mode] : cases) {
        MemoryDefaults defaults;
        EXPECT_EQ(BarSettings(defaults).mode(), BarMode::vantrel);
        defaults.set("mode", stored);
        EXPECT_EQ(BarSettings(defaults).mode(), mode);
    }
}

TEST(BarSettings, TheHeightIsANumberOrAbsent) {
    const std::pair<PropertyValue, std::optional<double>> cases[] = {
        {90, 90.0}, {30.5, 30.5}, {"90", std::nullopt}, {true, std::nullopt}};
    for (const auto& [stored, height] : cases) {
        MemoryDefaults defaults;
        defaults.set("barHeight", stored);
        EXPECT_EQ(BarSettings(defaults).barHeight(), height);
    }
}

TEST(BarSettings, AccessorsSeeWhatAnotherHandWrote) {
    MemoryDefaults defaults;
    const BarSettings settings(defaults);
    EXPECT_TRUE(settings.previewsSingleWindows());
    EXPECT_EQ(settings.syncedTileSize(), std::nullopt);
    defaults.set("previewsSingleWindows", false);
    defaults.set("syncedTileSize", 0.25);
    EXPECT_FALSE(settings.previewsSingleWindows());
    EXPECT_EQ(settings.syncedTileSize(), 0.25F);
}

TEST(BarSettings, RemovingTheHeightRemovesItsKey) {
    MemoryDefaults defaults;
    BarSettings settings(defaults);
    settings.setBarHeight(64);
    EXPECT_EQ(settings.barHeight(), 64);
    settings.setBarHeight(std::nullopt);
    EXPECT_TRUE(defaults.values.empty());
}

TEST(BarSettings, ARecordThatDoesNotDecodeIsAbsent) {
    using Record = BarSettings::Record;
    MemoryDefaults defaults;
    BarSettings settings(defaults);
    EXPECT_EQ(settings.record(Record::stacks), std::nullopt);
    defaults.set("stacks", Data{"[1, 2"});
    EXPECT_EQ(settings.record(Record::stacks), std::nullopt);
    defaults.set("stacks", "[1]");
    EXPECT_EQ(settings.record(Record::stacks), std::nullopt) << "text is not data";

    const auto content = nlohmann::json{{"path", "/home/\xff"}};
    settings.setRecord(Record::folderStacks, content);
    EXPECT_EQ(settings.record(Record::folderStacks)->at("path"), "/home/\xEF\xBF\xBD");
    EXPECT_EQ(settings.record(Record::shelf), std::nullopt);
}

} // namespace
} // namespace larkspan
