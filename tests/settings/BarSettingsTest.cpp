#include "settings/BarSettings.h"

#include "MemoryDefaults.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace larkspan {
namespace {

TEST(BarSettings, TheModeIsStoredAsItsWord) {
    MemoryDefaults defaults;
    BarSettings settings(defaults, true);
    for (const auto mode : {BarMode::systemDock, BarMode::vantrel}) {
        settings.setMode(mode);
        EXPECT_EQ(settings.mode(), mode);
        EXPECT_EQ(defaults.value("mode"), mode == BarMode::vantrel ? PropertyValue("vantrel")
                                                                   : PropertyValue("systemDock"));
    }
}

TEST(BarSettings, AccessorsSeeWhatAnotherHandWrote) {
    MemoryDefaults defaults;
    const BarSettings settings(defaults, true);
    EXPECT_TRUE(settings.previewsSingleWindows());
    EXPECT_EQ(settings.syncedTileSize(), std::nullopt);
    defaults.set("previewsSingleWindows", false);
    defaults.set("syncedTileSize", 0.25);
    EXPECT_FALSE(settings.previewsSingleWindows());
    EXPECT_EQ(settings.syncedTileSize(), 0.25F);
}

TEST(BarSettings, ARecordThatDoesNotDecodeIsAbsent) {
    using Record = BarSettings::Record;
    MemoryDefaults defaults;
    BarSettings settings(defaults, true);
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
