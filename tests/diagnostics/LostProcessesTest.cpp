#include "diagnostics/LostProcesses.h"

#include "adapters/sim/SimMac.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// Numbers that the simulated Mac does not use.
constexpr ProcessId gone = 7;
constexpr ProcessId alsoGone = 9;

class LostProcessesTest : public testing::Test {
  protected:
    sim::SimMac mac;
    DiagnosticsLog log{mac.scheduler};
    LostProcesses lost{mac.scheduler, mac.platform().workspace, log};
};

TEST_F(LostProcessesTest, AreThoseWhoseWindowsOutliveThemByThreeSeconds) {
    const double since = mac.scheduler.wallClock();
    lost.follow({gone, mac.finder()});
    mac.scheduler.runFor(2.9);
    EXPECT_THAT(lost.table(), IsEmpty()) << "a process may end a moment before its windows do";
    mac.scheduler.runFor(0.2);
    EXPECT_THAT(lost.table(), ElementsAre(Pair(gone, since)));
    EXPECT_EQ(log.lines().back().text, "process 7 has gone, its windows have not");
}

TEST_F(LostProcessesTest, AreNotThoseWhoseWindowsGoInTime) {
    lost.follow({gone});
    mac.scheduler.runFor(2);
    lost.follow({});
    lost.follow({gone});
    mac.scheduler.runFor(2);
    EXPECT_THAT(lost.table(), IsEmpty()) << "missing twice for less than three seconds";
    lost.follow({});
    mac.scheduler.runFor(5);
    EXPECT_THAT(lost.table(), IsEmpty());
    EXPECT_TRUE(log.lines().empty());
    EXPECT_EQ(mac.scheduler.timerCount(), 0U);
}

TEST_F(LostProcessesTest, AreToldOnceAndLeaveTheTableWithTheirWindows) {
    const double since = mac.scheduler.wallClock();
    for (int read = 0; read < 10; ++read) {
        lost.follow({gone, alsoGone});
        mac.scheduler.runFor(1);
    }
    EXPECT_EQ(log.lines().size(), 2U);
    lost.follow({alsoGone});
    EXPECT_THAT(lost.table(), ElementsAre(Pair(alsoGone, since)));
    EXPECT_EQ(log.lines().back().text, "the windows of process 7 have gone too");
}

} // namespace
} // namespace larkspan
