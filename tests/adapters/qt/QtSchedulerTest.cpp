#include "adapters/qt/QtScheduler.h"

#include "adapters/qt/RunLoop.h"

#include <gtest/gtest.h>

namespace larkspan::qt {
namespace {

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
