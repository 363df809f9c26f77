#include "diagnostics/LostProcesses.h"

#include "platform/sim/VirtualScheduler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;

class LostProcessesTest : public testing::Test {
  protected:
    sim::VirtualScheduler scheduler;
    DiagnosticsLog log{scheduler};
    LostProcesses lost{scheduler, log};
};

TEST_F(LostProcessesTest, AreThoseWithoutAProcessInTwoReadsRunning) {
    lost.follow({7});
    EXPECT_THAT(lost.table(), IsEmpty()) << "a process may end between its windows and the list";
    lost.follow({});
    lost.follow({7});
    EXPECT_THAT(lost.table(), IsEmpty()) << "not twice running";
    scheduler.runFor(5);
    lost.follow({7});
    ASSERT_THAT(lost.table(), ElementsAre(Key(7)));
    EXPECT_EQ(lost.table().at(7), scheduler.wallClock());
    EXPECT_EQ(log.lines().back().text, "process 7 has gone, its windows have not");
}

TEST_F(LostProcessesTest, AreToldOnceAndLeaveTheTableWithTheirWindows) {
    for (int read = 0; read < 4; ++read)
        lost.follow({7, 9});
    EXPECT_EQ(log.lines().size(), 2U);
    lost.follow({9});
    EXPECT_THAT(lost.table(), ElementsAre(Key(9)));
    EXPECT_EQ(log.lines().back().text, "the windows of process 7 have gone too");
}

} // namespace
} // namespace larkspan
