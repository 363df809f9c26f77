#include "spaces/PointerWatcher.h"

#include "adapters/sim/SimMac.h"

#include <gtest/gtest.h>

namespace larkspan {
namespace {

class PointerWatcherTest : public testing::Test {
  protected:
    explicit PointerWatcherTest(std::string_view displays = "1440x900, 1280x720")
        : mac(displays) {
        mac.movePointer({100, 100});
        watcher.emplace(mac.platform().screens, mac.platform().eventMonitors);
        watcher->onDisplayChange = [this] { ++changes; };
        mac.scheduler.runUntilIdle();
    }
    void moveTo(Point place) {
        mac.movePointer(place);
        mac.scheduler.runUntilIdle();
    }
    bool isWatching() { return mac.world().inputEvents.hasSubscribers(); }

    sim::SimMac mac;
    DisplayId main = mac.displayAt(0);
    DisplayId second = mac.displayAt(1);
    std::optional<PointerWatcher> watcher;
    int changes = 0;
};

TEST_F(PointerWatcherTest, TellsOfAnotherDisplayAndOfNothingElse) {
    EXPECT_EQ(watcher->display(), main);
    moveTo({1439, 500});
    EXPECT_EQ(changes, 0);
    moveTo({1440, 500});
    EXPECT_EQ(watcher->display(), second);
    EXPECT_EQ(changes, 1);
    moveTo({1441, 500});
    EXPECT_EQ(changes, 1);
}

TEST_F(PointerWatcherTest, TheTopmostRowBelongsToItsDisplay) {
    moveTo({1500, 900});
    EXPECT_EQ(watcher->display(), second);
    moveTo({100, 900});
    EXPECT_EQ(watcher->display(), main);
}

TEST_F(PointerWatcherTest, ADragCountsAsAMove) {
    mac.world().pointer = {1500, 500};
    mac.world().announce(InputEventType::leftMouseDragged);
    mac.scheduler.runUntilIdle();
    EXPECT_EQ(watcher->display(), second);
}

TEST_F(PointerWatcherTest, DoubledAndLostMovesLeaveItRight) {
    mac.doubleEvents();
    moveTo({1500, 500});
    EXPECT_EQ(changes, 1);
    mac.doubleEvents(false);
    mac.loseEvents();
    moveTo({100, 500});
    mac.loseEvents(false);
    EXPECT_EQ(watcher->display(), second) << "nobody told";
    moveTo({110, 500});
    EXPECT_EQ(watcher->display(), main);
}

TEST_F(PointerWatcherTest, TheDisplayUnderThePointerIsUnplugged) {
    moveTo({1500, 500});
    mac.unplug(second);
    mac.scheduler.runUntilIdle();
    EXPECT_EQ(watcher->display(), main) << "the only one left";
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(isWatching());
}

TEST_F(PointerWatcherTest, WatchesNothingWithOneDisplayOrNone) {
    EXPECT_TRUE(isWatching());
    mac.unplug(second);
    mac.scheduler.runUntilIdle();
    EXPECT_FALSE(isWatching());
    mac.unplugAll();
    mac.scheduler.runUntilIdle();
    EXPECT_EQ(watcher->display(), std::nullopt);
    EXPECT_FALSE(isWatching());
    mac.setDisplays("1440x900, 1280x720");
    mac.scheduler.runUntilIdle();
    EXPECT_TRUE(isWatching()) << "as after waking with other screens";
    EXPECT_EQ(watcher->display(), mac.displayAt(0));
}

TEST_F(PointerWatcherTest, NothingIsHeardAfterItsEnd) {
    watcher.reset();
    EXPECT_FALSE(isWatching());
    moveTo({1500, 500});
    EXPECT_EQ(changes, 0);
}

} // namespace
} // namespace larkspan
