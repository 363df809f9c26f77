#include "app/LaunchedApp.h"

#include <algorithm>
#include <fmt/format.h>
#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

/// The whole program on a Mac with three Spaces, on which Notes has a window.
class SpaceSwitchTest : public testing::Test {
  protected:
    SpaceSwitchTest() {
        mac.install("org.example.notes", "Notes");
        notes = mac.launch("org.example.notes");
        mac.openWindow(notes);
        mac.scheduler.runFor(1);
        app.emplace(mac);
        mac.scheduler.runFor(5);
        mac.systemLog.lines.clear();
    }
    std::vector<std::string> lines() const {
        std::vector<std::string> texts;
        for (const auto& line : mac.systemLog.lines)
            texts.push_back(line.text);
        return texts;
    }
    /// How many window reads ended in that time.
    std::size_t readsIn(double seconds) {
        const auto count = [this] {
            std::size_t reads = 0;
            for (const auto& line : app->controller.log().lines())
                reads += line.text.starts_with("window list read in") ? 1 : 0;
            return reads;
        };
        const auto before = count();
        mac.scheduler.runFor(seconds);
        return count() - before;
    }

    sim::SimMac mac{"1440x900 spaces=3"};
    ProcessId notes = 0;
    std::optional<LaunchedApp> app;
};

TEST_F(SpaceSwitchTest, ASwipeIsWrittenFromItsFirstStepToItsLanding) {
    mac.swipe(mac.displayAt(0), {.progress = 0.7, .velocity = 1.25});
    mac.scheduler.runFor(4);
    EXPECT_THAT(lines(),
                testing::IsSupersetOf(std::vector<testing::Matcher<std::string>>{
                    testing::StrEq("──── switch timeline starts"),
                    testing::StrEq("started; swipe: began progress 0.0000"),
                    testing::StrEq("+250ms swipe: ended progress 0.7000, 1.25 per second"),
                    testing::StrEq("+250ms swipe: fingers lifted at 0.70, 1.25 per second: "
                                   "expecting a switch to the right"),
                    testing::StrEq("+650ms spaces: macOS posted the Space change"),
                    testing::StrEq("+650ms bars: after the Space change: display 1 drawn 0.0 pt "
                                   "down, opacity 1.00, on screen, wanted"),
                    testing::StrEq("+650ms swipe: switched as expected"),
                    HasSubstr("ms spaces: Space of the display in use 2, before 1"),
                    AllOf(HasSubstr("ms windows: window list read in "), HasSubstr("regrouped")),
                    testing::StrEq("──── switch timeline ends"),
                }));
}

TEST_F(SpaceSwitchTest, ReadsRestDuringTheSlideAndFollowIt) {
    mac.swipe(mac.displayAt(0), {.progress = 0.7});
    EXPECT_EQ(readsIn(0.64), 0U);
    EXPECT_GE(readsIn(0.02), 1U);
}

TEST_F(SpaceSwitchTest, ASwipeThatIsTakenBackHoldsReadsNoLonger) {
    mac.swipe(mac.displayAt(0), {.progress = 0.2, .switches = false});
    EXPECT_EQ(readsIn(0.7), 0U);
    EXPECT_GE(readsIn(0.1), 1U);
    EXPECT_THAT(lines(), Contains(HasSubstr("swipe: stayed as expected")));
}

TEST_F(SpaceSwitchTest, NothingOfASwipeHoldsReadsForEver) {
    struct Case {
        const char* name;
        sim::SwipeOptions swipe;
        /// The tap is disabled for a moment, that long after the first touch.
        double deafAfter;
    };
    const Case cases[] = {
        {"a switch that never comes", {.progress = 0.9, .switches = false}, 0},
        {"cancelled", {.progress = 0.9, .isCancelled = true}, 0},
        {"the first Space has none to its left", {.progress = -0.9}, 0},
        {"the lift is not heard", {.progress = 0.3, .switches = false}, 0.245},
    };
    for (const auto& each : cases) {
        mac.swipe(mac.displayAt(0), each.swipe);
        if (each.deafAfter > 0) {
            mac.scheduler.runFor(each.deafAfter);
            mac.eventTaps.disable(TapEvent::disabledByTimeout);
            // The tap's own thread gets it late.
            mac.scheduler.queueLatency = 0.1;
        }
        mac.scheduler.runFor(3);
        mac.scheduler.queueLatency = 0;
        EXPECT_GE(readsIn(1), 1U) << each.name;
        EXPECT_FALSE(app->controller.slide().isSliding()) << each.name;
    }
}

TEST_F(SpaceSwitchTest, ALostNoticeOfTheSwitchHoldsReadsNoLonger) {
    mac.loseEvents();
    mac.swipe(mac.displayAt(0), {.progress = 0.9});
    EXPECT_EQ(readsIn(0.25 + SpaceSlide::longestLanding - 0.1), 0U);
    EXPECT_GE(readsIn(0.2), 1U);
    EXPECT_THAT(lines(), Contains(HasSubstr("swipe: stayed not as expected")));
}

TEST_F(SpaceSwitchTest, WithoutATapTheBarFollowsWhatTheSystemTells) {
    app.reset();
    mac.eventTaps.refuses = true;
    app.emplace(mac);
    mac.scheduler.runFor(5);
    EXPECT_THAT(lines(), Contains("swipe: could not listen for swipes"));
    EXPECT_THAT(
        app->controller.log().lines(),
        Contains(testing::Field(&DiagnosticsLog::Line::text, "could not listen for swipes")))
        << "where the user looks";
    mac.systemLog.lines.clear();
    mac.swipe(mac.displayAt(0));
    mac.scheduler.runFor(2);
    EXPECT_THAT(lines(), Contains("+0ms windows: Space layout changed"));
    EXPECT_THAT(lines(), Not(Contains(HasSubstr("swipe"))));
}

TEST_F(SpaceSwitchTest, NothingIsPolledWhereTheDesktopTellsOfChanges) {
    app.reset();
    mac.setAnnouncesChanges(true);
    app.emplace(mac);
    mac.scheduler.runFor(10);
    const auto turns = mac.scheduler.turns();
    mac.scheduler.runFor(60);
    EXPECT_EQ(mac.scheduler.turns() - turns, 0U);
}

TEST_F(SpaceSwitchTest, ThePolledDisplayIsTheOneInUse) {
    const auto side = mac.addDisplay("1280x720 spaces=2");
    mac.install("org.example.mail", "Mail");
    const auto mail = mac.launch("org.example.mail");
    mac.openWindow(mail, {.display = side});
    const auto polled = [&](DisplayId from, DisplayId to) {
        mac.scheduler.runFor(5);
        const auto texts = lines();
        mac.systemLog.lines.clear();
        const auto change = fmt::format("Space of the display in use {}, before {}",
                                        mac.spaceAt(to, 0), mac.spaceAt(from, 0));
        return std::ranges::any_of(texts, [&](const auto& text) { return text.ends_with(change); });
    };
    mac.activate(notes);
    mac.scheduler.runFor(5);
    mac.systemLog.lines.clear();
    mac.activate(mail);
    EXPECT_TRUE(polled(mac.displayAt(0), side)) << "another app is in front";
    mac.moveToDisplay(mac.world().windows.front().id, mac.displayAt(0));
    EXPECT_TRUE(polled(side, mac.displayAt(0))) << "its window went to another display";
}

} // namespace
} // namespace larkspan
