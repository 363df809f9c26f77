#include "dock/DockItemsReader.h"

#include "adapters/sim/SimMac.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DockItemsReaderTest : public testing::Test {
  protected:
    DockItemsReaderTest() {
        mac.install("com.example.mail", "My Mail");
        mac.setPinned({"com.example.mail"});
        notes = mac.launch("com.example.notes");
        dock = mac.pidOf("com.apple.dock");
    }
    std::vector<std::string> paths() {
        std::vector<std::string> paths;
        const auto icons = reader.read(dock).value();
        for (const auto& icon : icons)
            paths.push_back(icon.path);
        return paths;
    }

    sim::SimMac mac;
    DockItemsReader reader{mac.accessibility};
    ProcessId dock = 0;
    ProcessId notes = 0;
};

TEST_F(DockItemsReaderTest, ReadsTheAppsAndNotTheTrash) {
    EXPECT_THAT(paths(), ElementsAre("/System/Library/CoreServices/Finder.app",
                                     "/Applications/My Mail.app", "/Applications/notes.app"));
    mac.setBadge(notes, "12");
    const auto icons = reader.read(dock).value();
    EXPECT_EQ(icons[1].badge, "");
    EXPECT_EQ(icons[2].badge, "12");
    EXPECT_GT(icons[2].frame.x, icons[1].frame.x);
}

TEST_F(DockItemsReaderTest, FollowsTheFramesOfTheIconsItKnows) {
    mac.launch("com.example.music");
    const auto before = reader.read(dock).value();
    mac.requestAttention(notes, true);
    mac.scheduler.runFor(0.4);
    const auto after = reader.readFrames().value();
    EXPECT_LT(after[2].frame.y, before[2].frame.y - 10);
    EXPECT_EQ(after[1].frame, before[1].frame);
    EXPECT_THAT(liftedIcons(after), ElementsAre(2U));
}

TEST_F(DockItemsReaderTest, AnIconThatHasGoneEndsTheReadOfFrames) {
    ASSERT_TRUE(reader.read(dock));
    mac.quit(notes);
    EXPECT_FALSE(reader.readFrames());
    EXPECT_EQ(paths().size(), 2U);
    EXPECT_TRUE(reader.readFrames());
}

TEST_F(DockItemsReaderTest, AnswersNothingWithoutADockOrTrust) {
    EXPECT_FALSE(reader.read(9999));
    EXPECT_FALSE(reader.read(notes)) << "an app that is not the Dock has no list";
    mac.refuseAccessibility();
    EXPECT_FALSE(reader.read(dock));
    mac.refuseAccessibility(false);
    mac.dieDuringRead(dock, 7);
    EXPECT_FALSE(reader.read(dock)) << "it died during the read";
}

TEST_F(DockItemsReaderTest, AHungDockCostsOneShortWait) {
    mac.hang(dock);
    const double before = mac.scheduler.uptime();
    EXPECT_FALSE(reader.read(dock));
    EXPECT_NEAR(mac.scheduler.uptime() - before, 0.05, 0.001);
    mac.hang(dock, false);
    ASSERT_TRUE(reader.read(dock));
    mac.hang(dock);
    const double again = mac.scheduler.uptime();
    EXPECT_FALSE(reader.readFrames());
    EXPECT_NEAR(mac.scheduler.uptime() - again, 0.05, 0.001);
}

TEST(LiftedIcons, AreThoseAboveTheLowest) {
    const auto icons = [](const std::vector<double>& bottoms) {
        std::vector<DockIcon> row;
        for (const double bottom : bottoms)
            row.push_back({.frame = {0, bottom - 48, 48, 48}});
        return row;
    };
    EXPECT_THAT(liftedIcons({}), IsEmpty());
    EXPECT_THAT(liftedIcons(icons({890})), IsEmpty()) << "nothing to compare with";
    EXPECT_THAT(liftedIcons(icons({890, 889, 890.5})), IsEmpty()) << "no more than a jitter";
    EXPECT_THAT(liftedIcons(icons({890, 870, 890})), ElementsAre(1U));
    EXPECT_THAT(liftedIcons(icons({-40, -10})), ElementsAre(0U)) << "on a display above the main";
    // Magnified icons grow upwards from the same line.
    std::vector<DockIcon> magnified{{.frame = {0, 842, 48, 48}}, {.frame = {52, 800, 90, 90}}};
    EXPECT_THAT(liftedIcons(magnified), IsEmpty());
}

} // namespace
} // namespace larkspan
