#include "diagnostics/DiagnosticsLog.h"

#include "adapters/sim/VirtualScheduler.h"

#include <gtest/gtest.h>

namespace larkspan {
namespace {

TEST(DiagnosticsLog, KeepsTheNewestLinesOnly) {
    sim::VirtualScheduler scheduler;
    DiagnosticsLog log(scheduler);
    for (std::size_t i = 0; i < DiagnosticsLog::capacity + 2; ++i)
        log.write("bar", std::to_string(i));
    EXPECT_EQ(log.lines().size(), DiagnosticsLog::capacity);
    EXPECT_EQ(log.lines().front().text, "2");
}

TEST(DiagnosticsLog, StampsTheDateAndPassesEveryLineOn) {
    sim::VirtualScheduler scheduler;
    DiagnosticsLog log(scheduler);
    std::string passed;
    const auto follower = log.subscribe(
        [&](const DiagnosticsLog::Line& line) { passed = line.category + ": " + line.text; });
    scheduler.jumpWallClock(-3600);
    log.write("layout", "one bar");
    EXPECT_EQ(passed, "layout: one bar");
    EXPECT_EQ(log.lines().back().time, scheduler.wallClock());
}

} // namespace
} // namespace larkspan
