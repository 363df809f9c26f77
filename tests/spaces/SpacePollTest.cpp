#include "spaces/SpacePoll.h"

#include "spaces/SwitchLogWorld.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Spaces change without a word, as while the system has yet to tell.
class SpacePollTest : public testing::Test, protected SwitchLogWorld {
  protected:
    SpacePollTest()
        : SwitchLogWorld("1440x900 spaces=2, 800x600 name=side spaces=2") {
        mac.scheduler.runUntilIdle();
    }
    void show(std::size_t display, std::size_t space) {
        mac.world().displays[display].current = space;
    }
    std::string line(std::size_t display) const {
        return fmt::format("started; spaces: Space of the display in use {}, before {}",
                           mac.spaceAt(mac.displayAt(display), 1),
                           mac.spaceAt(mac.displayAt(display), 0));
    }

    SpacePoll poll{platform.scheduler, platform.windowServer, log, {}};
};

TEST_F(SpacePollTest, NoticesASwitchAtItsRate) {
    mac.scheduler.runFor(0.01);
    for (const bool isFast : {false, true}) {
        poll.setFast(isFast);
        const double interval = isFast ? SpacePoll::fastInterval : SpacePoll::slowInterval;
        mac.scheduler.runFor(2 * interval);
        newLines();
        show(0, isFast ? 0 : 1);
        mac.scheduler.runFor(interval + 0.001);
        EXPECT_THAT(newLines(), testing::Contains(testing::HasSubstr("display in use")))
            << "fast: " << isFast;
        const auto turns = mac.scheduler.turns();
        mac.scheduler.runFor(3);
        newLines();
        const auto later = mac.scheduler.turns();
        mac.scheduler.runFor(1);
        EXPECT_NEAR(static_cast<double>(mac.scheduler.turns() - later), 1 / interval, 1)
            << "the reads, and nothing on the main thread";
        EXPECT_GT(later, turns);
    }
}

TEST_F(SpacePollTest, LooksAtTheDisplayInUse) {
    poll.setDisplayInUse("side");
    mac.scheduler.runFor(3);
    newLines();
    show(0, 1);
    mac.scheduler.runFor(1);
    EXPECT_THAT(newLines(), IsEmpty());
    show(1, 1);
    mac.scheduler.runFor(1);
    EXPECT_THAT(newLines(), ElementsAre("──── switch timeline starts", line(1)));
}

TEST_F(SpacePollTest, LooksAtTheSpacesThatTheDisplaysShare) {
    mac.world().displaysHaveSeparateSpaces = false;
    poll.setDisplayInUse("side");
    mac.scheduler.runFor(3);
    newLines();
    show(0, 1);
    mac.scheduler.runFor(1);
    EXPECT_THAT(newLines(), ElementsAre("──── switch timeline starts", line(0)));
}

TEST_F(SpacePollTest, AFailedReadIsNoChange) {
    mac.scheduler.runFor(1);
    mac.removeFunction("CGSCopyManagedDisplaySpaces");
    mac.scheduler.runFor(1);
    EXPECT_THAT(newLines(), IsEmpty());
}

TEST_F(SpacePollTest, ASlowAnswerLetsNoReadsPileUp) {
    mac.scheduler.queueLatency = 2;
    mac.scheduler.runFor(1.1);
    EXPECT_EQ(mac.scheduler.waitingTasks("com.tessaly.Vantrel.SpaceSwitchLog"), 1U);
}

TEST(SpacePollEnd, AReadUnderWayFindsNobody) {
    SwitchLogWorld world;
    world.mac.scheduler.queueLatency = 1;
    { const SpacePoll poll(world.platform.scheduler, world.platform.windowServer, world.log, {}); }
    world.mac.scheduler.runFor(3);
    EXPECT_EQ(world.mac.scheduler.timerCount(), 0U);
}

} // namespace
} // namespace larkspan
