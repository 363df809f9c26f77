#pragma once

#include "platform/Scheduler.h"
#include "platform/contract/Adapter.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <memory>
#include <string>
#include <vector>

namespace larkspan::contract {

/// A scheduler and the loop that drives it.
class SchedulerWorld {
  public:
    virtual ~SchedulerWorld() = default;
    virtual Scheduler& scheduler() = 0;
    /// Runs the loop until the condition is true; returns false if a limit is reached first.
    virtual bool runUntil(const std::function<bool()>& condition) = 0;
};

/// What every scheduler must do. The parameter makes a new world for each test.
class SchedulerContract : public testing::TestWithParam<Adapter<SchedulerWorld>> {
  protected:
    Scheduler::Task note(const std::string& what) {
        return [this, what] { ran_.push_back(what); };
    }
    bool hasRun(const std::string& what) {
        return world_->runUntil(
            [&] { return std::find(ran_.begin(), ran_.end(), what) != ran_.end(); });
    }

    std::unique_ptr<SchedulerWorld> world_ = GetParam().make();
    Scheduler& scheduler_ = world_->scheduler();
    std::vector<std::string> ran_;
};

TEST_P(SchedulerContract, PostedTasksRunInOrderAndNeverAtOnce) {
    scheduler_.post([this] {
        ran_.push_back("first");
        scheduler_.post(note("posted by the first"));
        ran_.push_back("still the first");
    });
    scheduler_.post(note("second"));
    EXPECT_TRUE(ran_.empty());
    ASSERT_TRUE(hasRun("posted by the first"));
    EXPECT_THAT(ran_,
                testing::ElementsAre("first", "still the first", "second", "posted by the first"));
}

TEST_P(SchedulerContract, ATimerIsNeverEarlyAndRunsOnce) {
    const double start = scheduler_.uptime();
    double ranAt = 0;
    const Handle once = scheduler_.after(0.0103, [&] {
        ranAt = scheduler_.uptime();
        ran_.push_back("once");
    });
    const Handle now = scheduler_.after(0, note("now"));
    EXPECT_TRUE(ran_.empty()) << "even a timer with no delay waits for the loop";
    const Handle later = scheduler_.after(0.03, note("later"));
    ASSERT_TRUE(hasRun("later"));
    EXPECT_THAT(ran_, testing::ElementsAre("now", "once", "later"));
    EXPECT_GE(ranAt - start, 0.0103);
}

TEST_P(SchedulerContract, AnEndedHandleKeepsItsTaskFromRunning) {
    Handle ended = scheduler_.after(0.005, note("ended"));
    const Handle kept = scheduler_.after(0.01, note("kept"));
    ended.reset();
    ASSERT_TRUE(hasRun("kept"));
    EXPECT_THAT(ran_, testing::ElementsAre("kept"));
}

TEST_P(SchedulerContract, ATimerMayEndAnotherThatIsDue) {
    Handle victim;
    const Handle first = scheduler_.after(0, [&] {
        victim.reset();
        ran_.push_back("first");
    });
    victim = scheduler_.after(0, note("ended"));
    const Handle last = scheduler_.after(0.005, note("last"));
    ASSERT_TRUE(hasRun("last"));
    EXPECT_THAT(ran_, testing::ElementsAre("first", "last"));
}

TEST_P(SchedulerContract, ARepeatingTimerMayEndItselfFromItsOwnTask) {
    const double start = scheduler_.uptime();
    double firstBeat = 0;
    Handle timer;
    timer = scheduler_.every(0.005, [&] {
        if (ran_.empty()) firstBeat = scheduler_.uptime();
        ran_.push_back("beat");
        if (ran_.size() == 2) timer.reset();
    });
    ASSERT_TRUE(world_->runUntil([&] { return ran_.size() == 2; }));
    EXPECT_GE(firstBeat - start, 0.005) << "the first call comes after one interval";
    const Handle later = scheduler_.after(0.02, note("later"));
    ASSERT_TRUE(hasRun("later"));
    EXPECT_EQ(ran_.size(), 3U);
}

TEST_P(SchedulerContract, AQueueKeepsItsOrderAndIsNotTheMainThread) {
    std::vector<int> order;
    bool wasMain = false;
    SerialQueue& queue = scheduler_.queue("contract");
    EXPECT_EQ(&queue, &scheduler_.queue("contract"));
    EXPECT_NE(&queue, &scheduler_.queue("another"));
    for (int task = 0; task < 50; ++task) {
        queue.post([&, task] {
            const bool isMain = scheduler_.isMainThread();
            scheduler_.post([&, task, isMain] {
                wasMain = wasMain || isMain;
                order.push_back(task);
            });
        });
    }
    EXPECT_TRUE(order.empty());
    ASSERT_TRUE(world_->runUntil([&] { return order.size() == 50; }));
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
    EXPECT_FALSE(wasMain);
    EXPECT_TRUE(scheduler_.isMainThread());
}

TEST_P(SchedulerContract, ATimerOfAQueueRunsThereUntilItsHandleEnds) {
    SerialQueue& queue = scheduler_.queue("contract");
    // Written on the queue, read when it has nothing more to run.
    std::vector<double> beats;
    bool wasMain = false;
    const double start = scheduler_.uptime();
    Handle timer = queue.every(0.005, [&] {
        beats.push_back(scheduler_.uptime());
        wasMain = wasMain || scheduler_.isMainThread();
        if (beats.size() == 3) scheduler_.post(note("three beats"));
    });
    queue.post([this] { scheduler_.post(note("posted beside it")); });
    ASSERT_TRUE(hasRun("three beats"));
    timer.reset();
    queue.post([this] { scheduler_.post(note("the queue is past its beats")); });
    ASSERT_TRUE(hasRun("the queue is past its beats"));
    const auto made = beats.size();
    const Handle later = scheduler_.after(0.02, note("later"));
    ASSERT_TRUE(hasRun("later"));
    EXPECT_EQ(beats.size(), made);
    EXPECT_FALSE(wasMain);
    for (std::size_t beat = 0; beat < 3; ++beat)
        EXPECT_GE(beats[beat] - start, 0.005 * static_cast<double>(beat + 1) - 1e-9);
    EXPECT_EQ(ran_.front(), "posted beside it");
}

TEST_P(SchedulerContract, ATimerOfAQueueMayEndInItsOwnTaskAndInAnother) {
    SerialQueue& queue = scheduler_.queue("contract");
    Handle own;
    Handle other;
    int beats = 0;
    // On the queue, so that no beat comes before its handle is there.
    queue.post([&] {
        other = queue.every(0.02, [&] { beats += 100; });
        own = queue.every(0.005, [&] {
            if (++beats < 2) return;
            other.reset();
            own.reset();
            scheduler_.post(note("ended"));
        });
    });
    ASSERT_TRUE(hasRun("ended"));
    const Handle later = scheduler_.after(0.03, note("later"));
    ASSERT_TRUE(hasRun("later"));
    EXPECT_EQ(beats, 2);
}

TEST_P(SchedulerContract, HandlesMayOutliveTheScheduler) {
    Handle once = scheduler_.after(60, note("never"));
    Handle again = scheduler_.every(60, note("never"));
    Handle queued = scheduler_.queue("contract").every(60, note("never"));
    world_.reset();
    once.reset();
    again.reset();
    queued.reset();
    EXPECT_TRUE(ran_.empty());
}

} // namespace larkspan::contract
