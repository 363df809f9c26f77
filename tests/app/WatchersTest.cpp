#include "app/LaunchedApp.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class WatchersTest : public testing::Test {
  protected:
    WatchersTest() {
        movie = mac.launch("com.example.movie");
        window = mac.openWindow(movie, {.frame = small});
        app.emplace(mac);
        mac.scheduler.runFor(5);
        app->takeCalls();
    }
    /// What became of the bars before any time passed, and so before a poll.
    std::vector<std::string> callsAtOnce() {
        mac.scheduler.runUntilIdle();
        return app->takeCalls();
    }

    static constexpr Rect small{100, 100, 600, 400};
    static constexpr Rect whole{0, 0, 1440, 900};
    sim::SimMac mac{"1440x900"};
    ProcessId movie = 0;
    WindowId window = 0;
    std::optional<LaunchedApp> app;
};

TEST_F(WatchersTest, TheBarGivesWayToTheFrontAppsWindowBeforeTheWindowsAreRead) {
    mac.moveWindow(window, whole);
    EXPECT_THAT(callsAtOnce(), ElementsAre("out 1"));
    mac.scheduler.runFor(10);
    EXPECT_THAT(app->takeCalls(), IsEmpty()) << "and the window list confirms it";
    mac.moveWindow(window, small);
    EXPECT_THAT(callsAtOnce(), ElementsAre("in 1"));
    mac.scheduler.runFor(10);
    EXPECT_THAT(app->takeCalls(), IsEmpty());
}

TEST_F(WatchersTest, ItComesBackAfterAVideoInFullScreen) {
    mac.enterFullScreen(window);
    EXPECT_THAT(callsAtOnce(), ElementsAre("out 1"));
    mac.scheduler.runFor(10);
    EXPECT_THAT(app->takeCalls(), IsEmpty());
    mac.leaveFullScreen(window);
    mac.scheduler.runFor(10);
    EXPECT_THAT(app->takeCalls(), ElementsAre("in 1"));
}

TEST_F(WatchersTest, NoAppIsWatchedWhileTheSystemDockIsInUse) {
    app->controller.useSystemDock();
    mac.scheduler.runFor(1);
    app->takeCalls();
    const auto lines = app->controller.log().lines().size();
    mac.moveWindow(window, whole);
    EXPECT_THAT(callsAtOnce(), IsEmpty());
    EXPECT_EQ(app->controller.log().lines().size(), lines);
    mac.moveWindow(window, small);
    app->controller.useVantrel();
    mac.scheduler.runFor(5);
    app->takeCalls();
    mac.moveWindow(window, whole);
    EXPECT_THAT(callsAtOnce(), ElementsAre("out 1"));
}

} // namespace
} // namespace larkspan
