#include "platform/qt/QtScheduler.h"

#include "platform/qt/RunLoop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <future>
#include <string>
#include <thread>
#include <vector>

namespace larkspan::qt {
namespace {

class QtSchedulerTest : public testing::Test {
  protected:
    QCoreApplication& application_ = testApplication();
    QtScheduler scheduler_;
};

TEST_F(QtSchedulerTest, TimerIsNeverEarlyAndFiresOnce) {
    int fired = 0;
    const double start = scheduler_.uptime();
    double firedAt = 0;
    const Handle timer = scheduler_.after(0.0301, [&] {
        ++fired;
        firedAt = scheduler_.uptime();
    });
    bool later = false;
    const Handle check = scheduler_.after(0.08, [&] { later = true; });
    ASSERT_TRUE(runUntil([&] { return later; }));
    EXPECT_EQ(fired, 1);
    EXPECT_GE(firedAt - start, 0.0301);
}

TEST_F(QtSchedulerTest, EndedHandleCancels) {
    bool fired = false;
    Handle timer = scheduler_.after(0, [&] { fired = true; });
    timer.reset();
    bool later = false;
    const Handle check = scheduler_.after(0.01, [&] { later = true; });
    ASSERT_TRUE(runUntil([&] { return later; }));
    EXPECT_FALSE(fired);
}

TEST_F(QtSchedulerTest, RepeatingTimerMayEndItselfInsideItsTask) {
    int fired = 0;
    Handle timer;
    timer = scheduler_.every(0.001, [&] {
        if (++fired == 3) timer.reset();
    });
    bool later = false;
    const Handle check = scheduler_.after(0.03, [&] { later = true; });
    ASSERT_TRUE(runUntil([&] { return later; }));
    EXPECT_EQ(fired, 3);
}

TEST_F(QtSchedulerTest, HandleMayOutliveTheScheduler) {
    Handle timer;
    {
        QtScheduler shortLived;
        timer = shortLived.after(60, [] {});
    }
    timer.reset();
}

TEST_F(QtSchedulerTest, PostedTasksRunInOrderAndAfterThePostReturns) {
    std::string order;
    scheduler_.post([&] { order += 'a'; });
    scheduler_.post([&] {
        order += 'b';
        scheduler_.post([&] { order += 'd'; });
        order += 'c';
    });
    EXPECT_EQ(order, "");
    ASSERT_TRUE(runUntil([&] { return order.size() == 4; }));
    EXPECT_EQ(order, "abcd");
}

TEST_F(QtSchedulerTest, QueueRunsInOrderOffTheMainThreadAndPostsBack) {
    std::vector<int> results;
    std::atomic<bool> sawMainThread = false;
    SerialQueue& queue = scheduler_.queue("work");
    EXPECT_EQ(&queue, &scheduler_.queue("work"));
    EXPECT_NE(&queue, &scheduler_.queue("other work"));
    for (int number = 0; number < 200; ++number) {
        queue.post([&, number] {
            if (scheduler_.isMainThread()) sawMainThread = true;
            scheduler_.post([&, number] { results.push_back(number); });
        });
    }
    ASSERT_TRUE(runUntil([&] { return results.size() == 200; }));
    EXPECT_TRUE(std::is_sorted(results.begin(), results.end()));
    EXPECT_FALSE(sawMainThread);
    EXPECT_TRUE(scheduler_.isMainThread());
}

TEST_F(QtSchedulerTest, EndingWaitsForTheRunningTask) {
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

} // namespace
} // namespace larkspan::qt
