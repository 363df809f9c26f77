#include "adapters/qt/QtScheduler.h"

#include "adapters/qt/RunLoop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

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

} // namespace
} // namespace larkspan::qt
