#include "adapters/qt/QtScheduler.h"

#include "adapters/qt/RunLoop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <string>
#include <thread>
#include <vector>

namespace larkspan::qt {
namespace {

TEST(QtSchedulerTest, EndingWaitsForTheRunningTask) {
    testApplication();
    std::promise<void> began;
    std::promise<void> goOn;
    std::atomic<bool> finished = false;
    std::thread releaser;
    {
        QtScheduler ending;
        ending.queue("work").post([&] {
            began.set_value();
            goOn.get_future().wait();
            finished = true;
        });
        began.get_future().wait();
        releaser = std::thread([&] { goOn.set_value(); });
    }
    EXPECT_TRUE(finished);
    releaser.join();
}

TEST(QtSchedulerTest, BeatsThatABusyQueueMissedAreNotMadeUp) {
    testApplication();
    QtScheduler scheduler;
    SerialQueue& queue = scheduler.queue("work");
    std::promise<void> goOn;
    std::vector<std::string> order;
    std::promise<void> finished;
    queue.post([&] { goOn.get_future().wait(); });
    const Handle beats = queue.every(0.005, [&] {
        order.emplace_back("beat");
        if (order.size() == 1)
            queue.post([&] {
                order.emplace_back("posted by the first beat");
                finished.set_value();
            });
    });
    bool isLate = false;
    const Handle late = scheduler.after(0.03, [&] { isLate = true; });
    ASSERT_TRUE(runUntil([&] { return isLate; }));
    goOn.set_value();
    finished.get_future().wait();
    scheduler.endQueues();
    EXPECT_EQ(order[1], "posted by the first beat");
}

TEST(QtSchedulerTest, AQueueOfTimersEndsWithoutWaitingForThem) {
    testApplication();
    QtScheduler scheduler;
    const double start = scheduler.uptime();
    const Handle timer = scheduler.queue("work").every(3600, [] {});
    scheduler.endQueues();
    EXPECT_LT(scheduler.uptime() - start, 60);
}

} // namespace
} // namespace larkspan::qt
