#include "spaces/WindowMover.h"

#include "adapters/sim/SimMac.h"

#include <gtest/gtest.h>

namespace larkspan {
namespace {

using Outcome = WindowMover::Outcome;

class WindowMoving : public testing::Test {
  protected:
    WindowMoving() { window = mac.openWindow(mac.launch("com.example.notes")); }
    void move() {
        mover.move({window}, second, [this](Outcome outcome) { answers.push_back(outcome); });
    }

    sim::SimMac mac{"1440x900 spaces=2"};
    WindowMover mover{mac.scheduler, mac.platform().windowServer};
    SpaceId second = mac.spaceAt(mac.displayAt(0), 1);
    WindowId window = 0;
    std::vector<Outcome> answers;
};

TEST_F(WindowMoving, IsDoneWhenTheWindowIsThere) {
    move();
    EXPECT_TRUE(answers.empty()) << "asked for is not done";
    mac.scheduler.runFor(0.2);
    EXPECT_EQ(answers, std::vector{Outcome::moved});
    EXPECT_EQ(mac.world().window(window)->space, second);
    EXPECT_TRUE(mover.canMove());
    EXPECT_EQ(mac.scheduler.timerCount(), 0U);
}

TEST_F(WindowMoving, IsAbsentOnceARequestHadNoEffect) {
    mac.world().movesWindows = false;
    move();
    mac.scheduler.runFor(0.9);
    EXPECT_TRUE(answers.empty());
    mac.scheduler.runFor(0.3);
    EXPECT_EQ(answers, std::vector{Outcome::stayed});
    EXPECT_FALSE(mover.canMove());
    mac.world().movesWindows = true;
    move();
    mac.scheduler.runFor(2);
    EXPECT_EQ(answers, (std::vector{Outcome::stayed, Outcome::refused}));
    EXPECT_NE(mac.world().window(window)->space, second) << "nothing is asked any more";
}

TEST_F(WindowMoving, OneThatStaysProvesNothingWhereAnotherWent) {
    move();
    mac.scheduler.runFor(0.2);
    mac.world().movesWindows = false;
    mover.move({window}, mac.spaceAt(mac.displayAt(0), 0),
               [this](Outcome outcome) { answers.push_back(outcome); });
    mac.scheduler.runFor(2);
    EXPECT_EQ(answers, (std::vector{Outcome::moved, Outcome::stayed}));
    EXPECT_TRUE(mover.canMove());
}

TEST_F(WindowMoving, AWindowThatClosesMeanwhileProvesNothing) {
    mac.world().movesWindows = false;
    move();
    mac.closeWindow(window);
    mac.scheduler.runFor(2);
    EXPECT_EQ(answers, std::vector{Outcome::stayed});
    EXPECT_TRUE(mover.canMove());
}

TEST_F(WindowMoving, IsRefusedAtOnceWithoutTheFunction) {
    mac.removeFunction("SLSMoveWindowsToManagedSpace");
    move();
    EXPECT_EQ(answers, std::vector{Outcome::refused});
}

TEST_F(WindowMoving, MayEndUnderWay) {
    {
        WindowMover ended(mac.scheduler, mac.platform().windowServer);
        ended.move({window}, second, [this](Outcome outcome) { answers.push_back(outcome); });
    }
    mac.scheduler.runFor(2);
    EXPECT_TRUE(answers.empty());
}

} // namespace
} // namespace larkspan
