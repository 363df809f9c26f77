#include "adapters/sim/VirtualScheduler.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <vector>

namespace larkspan::sim {
namespace {

TEST(VirtualSchedulerTest, AnHourOfBeatsEachComesAtItsOwnMoment) {
    VirtualScheduler scheduler;
    int beats = 0;
    double worst = 0;
    const Handle timer = scheduler.every(0.5, [&] {
        ++beats;
        worst = std::max(worst, std::abs(scheduler.uptime() - 0.5 * beats));
    });
    scheduler.runFor(3600);
    EXPECT_EQ(beats, 7200);
    EXPECT_LT(worst, 1e-9);
    EXPECT_EQ(scheduler.uptime(), 3600);
}

TEST(VirtualSchedulerTest, ATurnThatBlocksMakesOthersLateAndMissedBeatsAreNotMadeUp) {
    VirtualScheduler scheduler;
    std::vector<double> beats;
    const Handle timer = scheduler.every(1, [&] { beats.push_back(scheduler.uptime()); });
    const Handle blocking = scheduler.after(0.5, [&] { scheduler.spend(3); });
    scheduler.runFor(5);
    EXPECT_THAT(beats, testing::ElementsAre(3.5, 4.5));
}

TEST(VirtualSchedulerTest, ABeatOfAQueueIsOneTurnAndNeverWaitsTwice) {
    VirtualScheduler scheduler;
    std::vector<double> beats;
    const Handle timer =
        scheduler.queue("reads").every(1, [&] { beats.push_back(scheduler.uptime()); });
    scheduler.runFor(2);
    EXPECT_EQ(scheduler.turns(), 2U);
    scheduler.queueLatency = 2.5;
    scheduler.runFor(6);
    EXPECT_THAT(beats, testing::ElementsAre(1, 2, 5.5));
}

TEST(VirtualSchedulerTest, SleepMovesTheDateOnly) {
    VirtualScheduler scheduler;
    const double date = scheduler.wallClock();
    scheduler.sleepFor(60);
    EXPECT_EQ(scheduler.uptime(), 0);
    EXPECT_EQ(scheduler.wallClock(), date + 60);
}

TEST(VirtualSchedulerTest, IdleMeansQueuesAreEmptyAndLaterTimersWait) {
    VirtualScheduler scheduler;
    scheduler.queueLatency = 0.2;
    bool answered = false;
    bool fired = false;
    scheduler.queue("reads").post([&] { scheduler.post([&] { answered = true; }); });
    const Handle timer = scheduler.after(10, [&] { fired = true; });
    scheduler.runUntilIdle();
    EXPECT_TRUE(answered);
    EXPECT_FALSE(fired);
    EXPECT_EQ(scheduler.uptime(), 0.2);
}

} // namespace
} // namespace larkspan::sim
