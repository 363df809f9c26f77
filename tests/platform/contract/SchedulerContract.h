#pragma once

#include "platform/Scheduler.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace larkspan::contract {

/// What every scheduler must do. `Adapter` makes one: it has `Scheduler& scheduler()` and
/// `void run(double seconds)`, which lets its loop run for so long. Another adapter joins with
/// INSTANTIATE_TYPED_TEST_SUITE_P.
template <typename Adapter>
class SchedulerContract : public testing::Test {
  protected:
    Scheduler& scheduler() { return adapter_.scheduler(); }
    void run(double seconds) { adapter_.run(seconds); }

    Adapter adapter_;
    std::vector<std::string> ran_;
};

TYPED_TEST_SUITE_P(SchedulerContract);

TYPED_TEST_P(SchedulerContract, PostedTasksRunInOrderAndNeverAtOnce) {
    this->scheduler().post([this] { this->ran_.push_back("first"); });
    this->scheduler().post([this] { this->ran_.push_back("second"); });
    EXPECT_TRUE(this->ran_.empty());
    this->run(0.02);
    EXPECT_THAT(this->ran_, testing::ElementsAre("first", "second"));
}

TYPED_TEST_P(SchedulerContract, AnEndedHandleKeepsItsTaskFromRunning) {
    Handle ended = this->scheduler().after(0.005, [this] { this->ran_.push_back("ended"); });
    const Handle kept = this->scheduler().after(0.01, [this] { this->ran_.push_back("kept"); });
    ended.reset();
    this->run(0.1);
    EXPECT_THAT(this->ran_, testing::ElementsAre("kept"));
}

TYPED_TEST_P(SchedulerContract, ARepeatingTimerMayEndItselfFromItsOwnTask) {
    Handle timer;
    timer = this->scheduler().every(0.005, [&] {
        this->ran_.push_back("beat");
        if (this->ran_.size() == 2) timer.reset();
    });
    this->run(0.2);
    EXPECT_EQ(this->ran_.size(), 2U);
}

TYPED_TEST_P(SchedulerContract, AQueueKeepsItsOrderAndIsNotTheMainThread) {
    std::vector<int> order;
    bool wasMain = true;
    SerialQueue& queue = this->scheduler().queue("contract");
    EXPECT_EQ(&queue, &this->scheduler().queue("contract"));
    for (int task = 0; task < 50; ++task) {
        queue.post([&, task] {
            wasMain = this->scheduler().isMainThread();
            this->scheduler().post([&order, task] { order.push_back(task); });
        });
    }
    this->run(0.2);
    EXPECT_FALSE(wasMain);
    EXPECT_TRUE(this->scheduler().isMainThread());
    ASSERT_EQ(order.size(), 50U);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

REGISTER_TYPED_TEST_SUITE_P(SchedulerContract, PostedTasksRunInOrderAndNeverAtOnce,
                            AnEndedHandleKeepsItsTaskFromRunning,
                            ARepeatingTimerMayEndItselfFromItsOwnTask,
                            AQueueKeepsItsOrderAndIsNotTheMainThread);

} // namespace larkspan::contract
