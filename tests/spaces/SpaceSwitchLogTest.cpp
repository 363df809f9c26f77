#include "spaces/SpaceSwitchLog.h"

#include "spaces/SwitchLogWorld.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Mark = SpaceSwitchLog::Mark;

class SpaceSwitchLogTest : public testing::Test, protected SwitchLogWorld {};

TEST_F(SpaceSwitchLogTest, WritesATimelineFromItsStartToItsEnd) {
    log.stamp("front app", "too early", Mark::ordinary);
    log.stamp("swipe", "began progress 0.0000", Mark::starting);
    mac.scheduler.runFor(0.25);
    log.stamp("swipe", "ended progress 0.6000, 1.00 per second", Mark::ordinary);
    mac.scheduler.runFor(1.4);
    EXPECT_THAT(newLines(),
                ElementsAre("──── switch timeline starts", "started; swipe: began progress 0.0000",
                            "+250ms swipe: ended progress 0.6000, 1.00 per second"));
    mac.scheduler.runFor(0.2);
    EXPECT_THAT(newLines(), ElementsAre("──── switch timeline ends"));
    log.stamp("swipe", "too late", Mark::ordinary);
    mac.scheduler.runFor(5);
    EXPECT_THAT(newLines(), IsEmpty());
}

TEST_F(SpaceSwitchLogTest, BelongsToOneSubsystem) {
    log.stampError("swipe", "could not listen for swipes");
    log.stamp("swipe", "x", Mark::starting);
    for (const auto& line : mac.systemLog.lines)
        EXPECT_EQ(line.subsystem, "com.tessaly.Vantrel");
    EXPECT_EQ(mac.systemLog.lines.front().text, "swipe: could not listen for swipes");
    EXPECT_EQ(mac.systemLog.lines.front().level, SystemLog::Level::error);
    EXPECT_EQ(mac.systemLog.lines.back().level, SystemLog::Level::standard);
}

// The main thread hangs past the end, and the next swipe's first step comes from the tap's thread.
TEST_F(SpaceSwitchLogTest, EndsATimelineBeforeItStartsTheNext) {
    std::vector<bool> running;
    log.onRunning = [&](bool isRunning) { running.push_back(isRunning); };
    log.stamp("swipe", "one", Mark::starting);
    mac.scheduler.runUntilIdle();
    mac.scheduler.spend(2);
    log.stamp("swipe", "two", Mark::starting);
    mac.scheduler.runFor(1);
    EXPECT_THAT(newLines(), ElementsAre("──── switch timeline starts", "started; swipe: one",
                                        "──── switch timeline ends", "──── switch timeline starts",
                                        "started; swipe: two"));
    mac.scheduler.runFor(1);
    EXPECT_THAT(newLines(), ElementsAre("──── switch timeline ends"));
    EXPECT_THAT(running, ElementsAre(true, false)) << "it was followed without a break";
}

TEST_F(SpaceSwitchLogTest, SamplesTheBarsOnlyWhileATimelineRuns) {
    std::vector<bool> running;
    log.onRunning = [&](bool isRunning) { running.push_back(isRunning); };
    int reads = 0;
    log.readBars = [&] {
        ++reads;
        return std::vector<BarState>{};
    };
    mac.scheduler.runFor(1);
    EXPECT_EQ(reads, 0);
    log.stamp("swipe", "began", Mark::starting);
    mac.scheduler.runFor(10);
    EXPECT_NEAR(reads, 90, 1);
    EXPECT_THAT(running, ElementsAre(true, false));
    EXPECT_EQ(mac.scheduler.timerCount(), 0U);
}

TEST_F(SpaceSwitchLogTest, WritesABarWhenItLooksDifferent) {
    std::vector<BarState> bars{{.display = 1, .isOnScreen = true, .isWanted = true},
                               {.display = 2, .opacity = 0.5F}};
    log.readBars = [&] { return bars; };
    log.stamp("swipe", "began", Mark::starting);
    mac.scheduler.runFor(0.1);
    newLines();
    bars.front().drop = 12.25;
    bars.front().isWanted = false;
    mac.scheduler.runFor(0.1);
    EXPECT_THAT(newLines(), ElementsAre("+117ms bars: display 1 drawn 12.2 pt down, opacity 1.00, "
                                        "on screen, not wanted"));
    log.spaceChanged();
    EXPECT_THAT(newLines(),
                ElementsAre("+200ms spaces: macOS posted the Space change",
                            "+200ms bars: after the Space change: display 1 drawn 12.2 pt down, "
                            "opacity 1.00, on screen, not wanted",
                            "+200ms bars: after the Space change: display 2 drawn 0.0 pt down, "
                            "opacity 0.50, off screen, not wanted"));
}

TEST_F(SpaceSwitchLogTest, BarsThatMoveDoNotKeepATimelineRunning) {
    double drop = 0;
    log.readBars = [&] { return std::vector<BarState>{{.display = 1, .drop = ++drop}}; };
    log.stamp("swipe", "began", Mark::starting);
    mac.scheduler.runFor(1.6);
    EXPECT_FALSE(log.isRunning());
}

TEST_F(SpaceSwitchLogTest, EachTimelineStartsAfreshWithBarsAndFrames) {
    log.readBars = [] { return std::vector<BarState>{{.display = 1}}; };
    for (const auto* which : {"first", "second"}) {
        log.stamp("swipe", "began", Mark::starting);
        mac.scheduler.runFor(5);
        EXPECT_THAT(newLines(), ElementsAre("──── switch timeline starts", "started; swipe: began",
                                            testing::HasSubstr("bars: display 1 drawn"),
                                            "──── switch timeline ends"))
            << which;
    }
}

TEST_F(SpaceSwitchLogTest, TellsHowLongDrawingWasHeldUp) {
    log.stamp("swipe", "began", Mark::starting);
    mac.scheduler.runFor(0.1);
    newLines();
    mac.scheduler.post([this] { mac.scheduler.spend(0.2); });
    mac.scheduler.runFor(0.3);
    EXPECT_THAT(newLines(), ElementsAre(testing::HasSubstr("frames: busy for 2")));
}

TEST_F(SpaceSwitchLogTest, ASpaceChangeStartsATimelineAndAnAppDoesNot) {
    const RunningApplication notes{
        .pid = 40, .bundleIdentifier = "org.example.notes", .localizedName = "Notes"};
    log.appActivated(notes);
    EXPECT_THAT(newLines(), IsEmpty());
    log.spaceChanged();
    log.appActivated(notes);
    log.appActivated({.pid = 41, .localizedName = "tool"});
    EXPECT_THAT(newLines(), ElementsAre("──── switch timeline starts",
                                        "started; spaces: macOS posted the Space change",
                                        "+0ms front app: Notes (org.example.notes)",
                                        "+0ms front app: tool (pid 41)"));
}

TEST_F(SpaceSwitchLogTest, WritesEveryScreenAndWhereItsDockIs) {
    mac.setDisplays("1440x900, 800x600");
    mac.setDock({.tileSize = 0, .place = {2, 2}});
    log.stamp("swipe", "began", Mark::starting);
    newLines();
    log.screensChanged();
    const auto displays = mac.platform().screens.screens();
    EXPECT_THAT(
        newLines(),
        ElementsAre("+0ms screens: macOS posted a change of the screens",
                    fmt::format("+0ms screens: display {} at (0, 0, 1440, 900), Dock bottom "
                                "strip 36 pt",
                                displays[0].display),
                    fmt::format("+0ms screens: display {} at (1440, 300, 800, 600), Dock elsewhere "
                                "strip 0 pt",
                                displays[1].display)));
}

TEST_F(SpaceSwitchLogTest, DoesNothingWhileNobodyKeepsTheLog) {
    mac.systemLog.isEnabledAtAll = false;
    log.spaceChanged();
    mac.scheduler.runUntilIdle();
    EXPECT_FALSE(log.isRunning());
    EXPECT_EQ(mac.scheduler.timerCount(), 0U);
    EXPECT_THAT(newLines(), IsEmpty());
}

} // namespace
} // namespace larkspan
