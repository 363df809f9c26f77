#include "spaces/SwitchClock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace larkspan {
namespace {

using Mark = SwitchClock::Mark;

TEST(SwitchClock, RunsUntilNothingHasKeptItRunningForAWhile) {
    struct Step {
        Mark mark;
        double now;
        /// -1: no timeline runs.
        std::int64_t milliseconds;
        bool isStarted = false;
    };
    const Step steps[] = {
        {Mark::ordinary, 99, -1},
        {Mark::passive, 99, -1},
        {Mark::starting, 100, 0, true},
        {Mark::ordinary, 101.4, 1400},
        // Passive marks read, but a timeline they alone read runs out.
        {Mark::passive, 102.8, 2800},
        {Mark::ordinary, 103, -1},
        {Mark::passive, 103, -1},
        {Mark::starting, 103.1, 0, true},
        {Mark::starting, 103.2, 100},
        {Mark::passive, 104.65, 1550},
        {Mark::ordinary, 104.8, -1},
        {Mark::starting, 105, 0, true},
        // Rounded, not cut.
        {Mark::ordinary, 105.0006, 1},
    };
    SwitchClock clock;
    for (const auto& step : steps) {
        const auto reading = clock.mark(step.mark, step.now);
        EXPECT_EQ(reading ? reading->milliseconds : -1, step.milliseconds) << "at " << step.now;
        EXPECT_EQ(reading && reading->isStarted, step.isStarted) << "at " << step.now;
    }
}

TEST(SwitchClock, AnEarlierMomentNeverShortensATimeline) {
    SwitchClock clock;
    clock.mark(Mark::starting, 10);
    clock.mark(Mark::ordinary, 11);
    // Taken before the other on another thread.
    clock.mark(Mark::ordinary, 10.5);
    EXPECT_EQ(clock.end(), 12.5);
}

TEST(SwitchClock, IsFinishedOnceAndOnlyWhenItHasRunOut) {
    SwitchClock clock;
    EXPECT_FALSE(clock.finish(5));
    clock.mark(Mark::starting, 10);
    EXPECT_FALSE(clock.finish(11.4));
    EXPECT_TRUE(clock.finish(11.5));
    EXPECT_FALSE(clock.finish(11.5));
    clock.mark(Mark::starting, 20);
    EXPECT_TRUE(clock.mark(Mark::starting, 30)->endsAnother);
}

TEST(SwitchClock, OpensOneTimelineForAnyNumberOfThreads) {
    SwitchClock clock;
    std::atomic<int> started = 0;
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&] {
            for (int i = 0; i < 1000; ++i) {
                if (clock.mark(Mark::starting, 10 + i * 1e-6)->isStarted) ++started;
                clock.finish(10);
                clock.end();
            }
        });
    threads.clear();
    EXPECT_EQ(started, 1);
}

} // namespace
} // namespace larkspan
