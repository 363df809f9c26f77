#include "spaces/FullScreenWatcher.h"

#include "adapters/sim/SimMac.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Rect small{100, 100, 600, 400};
const Rect whole{0, 0, 1440, 900};

class FullScreenWatcherTest : public testing::Test {
  protected:
    FullScreenWatcherTest() {
        mac.accessibility.setMessagingTimeout(mac.accessibility.createSystemWide(), 0.5F);
        movie = mac.launch("com.example.movie");
        window = mac.openWindow(movie, {.frame = small});
        notes = mac.launch("com.example.notes", {.inBackground = true});
        mac.openWindow(notes, {.frame = small});
        mac.activate(movie);
        watcher.emplace(mac.scheduler, mac.platform().workspace, mac.platform().screens,
                        mac.accessibility, log);
        watcher->barHeight = [this] { return barHeight; };
        watcher->onGrown = [this](const Rect& screen) {
            told.push_back(fmt::format("grown {:g}", screen.x));
        };
        watcher->onShrunk = [this](const Rect& screen) {
            told.push_back(fmt::format("shrunk {:g}", screen.x));
        };
        mac.scheduler.runUntilIdle();
        watcher->start();
        mac.scheduler.runUntilIdle();
    }
    /// What was told since the last call, once everything has come to rest.
    std::vector<std::string> takeTold() {
        mac.scheduler.runUntilIdle();
        return std::exchange(told, {});
    }
    void grow() { mac.moveWindow(window, whole); }
    void shrink() { mac.moveWindow(window, small); }

    sim::SimMac mac{"1440x900, 1280x720"};
    DiagnosticsLog log{mac.scheduler};
    std::optional<double> barHeight = 72;
    ProcessId movie = 0;
    ProcessId notes = 0;
    WindowId window = 0;
    std::vector<std::string> told;
    std::optional<FullScreenWatcher> watcher;
};

TEST_F(FullScreenWatcherTest, TellsOnceThatTheWindowGrewOverTheStripAndShrankBack) {
    grow();
    EXPECT_THAT(takeTold(), ElementsAre("grown 0"));
    mac.moveWindow(window, {0, 25, 1440, 875});
    EXPECT_THAT(takeTold(), IsEmpty()) << "it still fills the screen";
    shrink();
    EXPECT_THAT(takeTold(), ElementsAre("shrunk 0"));
    mac.moveWindow(window, {1440, 0, 1280, 720});
    EXPECT_THAT(takeTold(), ElementsAre("grown 1440"));
    grow();
    EXPECT_THAT(takeTold(), ElementsAre("shrunk 1440", "grown 0"));
}

TEST_F(FullScreenWatcherTest, WhatComesForwardHasNotGrown) {
    mac.moveWindow(mac.openWindow(notes, {.frame = small}), whole);
    EXPECT_THAT(takeTold(), IsEmpty()) << "not the app in front";
    mac.activate(notes);
    EXPECT_THAT(takeTold(), IsEmpty());
    mac.activate(movie);
    EXPECT_THAT(takeTold(), IsEmpty());
    const auto other = mac.openWindow(movie, {.frame = whole});
    EXPECT_THAT(takeTold(), IsEmpty()) << "another window of the app";
    mac.moveWindow(other, small);
    EXPECT_THAT(takeTold(), ElementsAre("shrunk 0")) << "but it is followed from then on";
}

TEST_F(FullScreenWatcherTest, AWindowThatGoesGivesTheStripBack) {
    const struct {
        const char* name;
        std::function<void()> act;
    } cases[] = {
        {"closes", [&] { mac.closeWindow(window); }},
        {"closes before another",
         [&] {
             mac.openWindow(movie, {.frame = small});
             mac.focusWindow(window);
             mac.scheduler.runUntilIdle();
             mac.closeWindow(window);
         }},
        {"the app dies", [&] { mac.kill(movie); }},
    };
    for (const auto& each : cases) {
        if (mac.world().app(movie) == nullptr) movie = mac.launch("com.example.movie");
        window = mac.openWindow(movie, {.frame = small});
        mac.focusWindow(window);
        takeTold();
        grow();
        EXPECT_THAT(takeTold(), ElementsAre("grown 0")) << each.name;
        each.act();
        EXPECT_THAT(takeTold(), ElementsAre("shrunk 0")) << each.name;
    }
}

TEST_F(FullScreenWatcherTest, SaysNothingWithoutABar) {
    barHeight.reset();
    grow();
    EXPECT_THAT(takeTold(), IsEmpty());
    barHeight = 72;
    watcher->stop();
    shrink();
    EXPECT_THAT(takeTold(), IsEmpty());
    watcher->start();
    takeTold();
    grow();
    EXPECT_THAT(takeTold(), ElementsAre("grown 0"));
}

TEST_F(FullScreenWatcherTest, AnAppThatHangsIsAskedAgainUntilItAnswers) {
    mac.hang(notes);
    mac.activate(notes);
    mac.scheduler.runFor(10);
    mac.hang(notes, false);
    mac.scheduler.runFor(FullScreenWatcher::retryDelay + 1);
    mac.moveWindow(mac.world().windows.front().id, whole);
    EXPECT_THAT(takeTold(), ElementsAre("grown 0"));
}

TEST_F(FullScreenWatcherTest, AHungAppKeepsNobodyElseWaitingForLong) {
    mac.hang(notes);
    mac.activate(notes);
    mac.activate(movie);
    const double before = mac.scheduler.uptime();
    mac.scheduler.runUntilIdle();
    grow();
    EXPECT_THAT(takeTold(), ElementsAre("grown 0"));
    EXPECT_LE(mac.scheduler.uptime() - before, 0.5 + 0.01) << "one question at most";
}

TEST_F(FullScreenWatcherTest, ALateAnswerAboutAnEarlierAppIsForgotten) {
    grow();
    takeTold();
    mac.answerAfter(movie, 0.2);
    mac.moveWindow(window, {0, 25, 1440, 875});
    mac.scheduler.post([this] { mac.activate(notes); });
    shrink();
    EXPECT_THAT(takeTold(), IsEmpty());
    mac.moveWindow(mac.world().windows.front().id, whole);
    EXPECT_THAT(takeTold(), ElementsAre("grown 0"));
}

TEST_F(FullScreenWatcherTest, AnAppThatComesForwardDuringTheQuestionToAnotherIsFollowed) {
    mac.scheduler.queueLatency = 0.1;
    mac.activate(notes);
    mac.scheduler.runFor(0.05);
    mac.activate(movie);
    takeTold();
    grow();
    EXPECT_THAT(takeTold(), ElementsAre("grown 0"));
}

TEST_F(FullScreenWatcherTest, DoubledNewsTellsOnceAndLostNewsIsMadeUpForByTheNext) {
    mac.doubleEvents();
    grow();
    EXPECT_THAT(takeTold(), ElementsAre("grown 0"));
    mac.doubleEvents(false);
    mac.loseEvents();
    shrink();
    EXPECT_THAT(takeTold(), IsEmpty());
    mac.loseEvents(false);
    mac.moveWindow(window, {120, 100, 600, 400});
    EXPECT_THAT(takeTold(), ElementsAre("shrunk 0"));
}

TEST_F(FullScreenWatcherTest, TheScreenGoesUnderTheWindow) {
    mac.moveWindow(window, {1440, 0, 1280, 720});
    EXPECT_THAT(takeTold(), ElementsAre("grown 1440"));
    mac.scheduler.sleepFor(3600);
    mac.unplug(mac.displayAt(1));
    EXPECT_THAT(takeTold(), IsEmpty()) << "there is no strip to give back";
    grow();
    EXPECT_THAT(takeTold(), ElementsAre("grown 0"));
}

TEST_F(FullScreenWatcherTest, MayEndWithAVisitUnderWay) {
    mac.scheduler.queueLatency = 0.1;
    grow();
    mac.scheduler.runFor(0.05);
    watcher.reset();
    shrink();
    EXPECT_THAT(takeTold(), IsEmpty());
}

TEST_F(FullScreenWatcherTest, WithoutPermissionNobodyIsAskedAgainAndAgain) {
    mac.refuseAccessibility();
    mac.activate(notes);
    mac.scheduler.runUntilIdle();
    const auto turns = mac.scheduler.turns();
    mac.scheduler.runFor(60);
    EXPECT_EQ(mac.scheduler.turns(), turns);
}

} // namespace
} // namespace larkspan
