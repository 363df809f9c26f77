#include "adapters/qt/ThreadQueue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <future>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace larkspan::qt {
namespace {

TEST(ThreadQueueTest, EndingWaitsForTheRunningTask) {
    std::promise<void> began;
    std::promise<void> goOn;
    std::atomic<bool> finished = false;
    std::thread releaser;
    {
        ThreadQueue ending([] { return 0.0; });
        ending.post([&] {
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

TEST(ThreadQueueTest, BeatsThatABusyQueueMissedAreNotMadeUp) {
    std::atomic<double> uptime = 0;
    std::promise<void> goOn;
    std::promise<void> finished;
    std::vector<std::string> order;
    std::optional<ThreadQueue> queue([&] { return uptime.load(); });
    queue->post([&] { goOn.get_future().wait(); });
    queue->post([&] { uptime = 0.06; });
    const Handle beats = queue->every(0.005, [&] {
        order.emplace_back("beat");
        if (order.size() == 1)
            queue->post([&] {
                order.emplace_back("posted by the first beat");
                finished.set_value();
            });
    });
    uptime = 0.03;
    goOn.set_value();
    finished.get_future().wait();
    queue.reset();
    EXPECT_EQ(order, (std::vector<std::string>{"beat", "posted by the first beat"}));
}

// Plain values, so that the thread sanitizer sees two tasks that run at once or without order.
TEST(ThreadQueueTest, AnyThreadMayPostAndStartAndEndTimers) {
    constexpr int posts = 200;
    std::atomic<double> uptime = 0;
    std::array<std::vector<int>, 3> order;
    int beats = 0;
    std::promise<void> lastDone;
    ThreadQueue queue([&] { return uptime.load(); });
    std::vector<std::thread> threads;
    for (auto& own : order)
        threads.emplace_back([&] {
            for (int post = 0; post < posts; ++post) {
                queue.post([&own, post] { own.push_back(post); });
                const Handle timer = queue.every(0.001, [&] { ++beats; });
                uptime = uptime + 0.001;
            }
        });
    for (auto& thread : threads)
        thread.join();
    queue.post([&] { lastDone.set_value(); });
    lastDone.get_future().wait();
    for (const auto& own : order) {
        ASSERT_EQ(own.size(), posts);
        EXPECT_TRUE(std::ranges::is_sorted(own));
    }
}

} // namespace
} // namespace larkspan::qt
