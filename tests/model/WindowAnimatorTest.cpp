#include "model/ModelWorld.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using Phase = WindowAnimator::Phase;
using Direction = WindowFlights::Direction;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class WindowAnimatorTest : public testing::Test, protected ModelWorld {
  protected:
    WindowAnimatorTest() {
        launch("notes", {.opensWindow = true});
        mail = launch("mail", {.opensWindow = true});
        start();
        settle();
        flights.seconds = 0.4;
    }
    bool isHidden() { return mac.world().app(mail)->hidden; }
    void clickMail() {
        click.click(item("mail"), nullptr, {10, 0, 60, 70});
        settle();
    }
    /// Nothing is left of any flight.
    void expectRest() {
        EXPECT_EQ(animator.phase(mail), Phase::none);
        EXPECT_FALSE(animator.hasPendingHide(mail));
        EXPECT_THAT(flights.flying, IsEmpty());
    }
    ProcessId mail = 0;
};

TEST_F(WindowAnimatorTest, HidesAtTheEndOfTheFlight) {
    animator.hide(mail, {});
    EXPECT_EQ(animator.phase(mail), Phase::hiding);
    mac.scheduler.runFor(0.3);
    EXPECT_FALSE(isHidden());
    mac.scheduler.runFor(0.2);
    EXPECT_TRUE(isHidden());
    expectRest();
}

TEST_F(WindowAnimatorTest, PicturesOfAHideTakenBackComeToNothing) {
    flights.withholdsPictures = true;
    animator.hide(mail, {});
    const auto first = flights.withheld.at(mail);
    animator.cancelHide(mail);
    first();
    expectRest();
    animator.hide(mail, {});
    first();
    EXPECT_TRUE(animator.hasPendingHide(mail)) << "those it waits for are still to come";
}

TEST_F(WindowAnimatorTest, ShowsAtTheEndOfTheFlightAndSettlesWhenTheSystemSaysSo) {
    mac.hide(mail);
    settle();
    EXPECT_TRUE(animator.show(mail, {}));
    EXPECT_EQ(animator.phase(mail), Phase::showing);
    EXPECT_TRUE(isHidden());
    mac.loseEvents();
    mac.scheduler.runFor(0.5);
    EXPECT_FALSE(isHidden());
    EXPECT_EQ(mac.frontmost(), mail);
    EXPECT_EQ(animator.lastActivation()->pid, mail);
    EXPECT_EQ(animator.phase(mail), Phase::settling) << "nobody told that it shows itself";
    EXPECT_THAT(flights.flying, ElementsAre(Pair(mail, Direction::outOfTile)));
    mac.scheduler.runFor(0.5);
    expectRest();
    animator.show(mail, {});
    animator.unhidden(mail);
    expectRest();
}

TEST_F(WindowAnimatorTest, AClickTakesAHideBack) {
    clickMail();
    mac.scheduler.runFor(0.2);
    ASSERT_EQ(animator.phase(mail), Phase::hiding);
    clickMail();
    EXPECT_EQ(animator.phase(mail), Phase::settling);
    EXPECT_THAT(flights.flying, ElementsAre(Pair(mail, Direction::outOfTile)));
    mac.scheduler.runFor(1);
    EXPECT_FALSE(isHidden());
    EXPECT_EQ(mac.frontmost(), mail);
    expectRest();
}

TEST_F(WindowAnimatorTest, AHideTakenBackBringsTheAppAndItsMinimisedWindowsForward) {
    const auto window = mac.openWindow(mail);
    settle();
    clickMail();
    ASSERT_EQ(animator.phase(mail), Phase::hiding);
    mac.minimize(window);
    mac.activate(mac.finder());
    settle();
    clickMail();
    EXPECT_EQ(mac.frontmost(), mail);
    EXPECT_FALSE(mac.world().window(window)->minimized);
}

TEST_F(WindowAnimatorTest, OnlyAHideCanBeTakenBack) {
    mac.hide(mail);
    settle();
    animator.show(mail, {});
    animator.cancelHide(mail);
    EXPECT_EQ(animator.phase(mail), Phase::showing);
    mac.scheduler.runFor(1);
    EXPECT_FALSE(isHidden());
}

TEST_F(WindowAnimatorTest, AShowEndsTheWaitOfAHide) {
    flights.withholdsPictures = true;
    animator.hide(mail, {});
    mac.hide(mail);
    settle();
    animator.show(mail, {});
    EXPECT_FALSE(animator.hasPendingHide(mail));
    flights.withheld.at(mail)();
    mac.scheduler.runFor(1);
    EXPECT_FALSE(isHidden());
}

TEST_F(WindowAnimatorTest, AClickTurnsAShowRound) {
    mac.hide(mail);
    settle();
    clickMail();
    ASSERT_EQ(animator.phase(mail), Phase::showing);
    mac.scheduler.runFor(0.2);
    // Its pictures are in the air already.
    flights.withholdsPictures = true;
    clickMail();
    EXPECT_EQ(animator.phase(mail), Phase::hiding);
    mac.scheduler.runFor(1);
    EXPECT_TRUE(isHidden());
    expectRest();
}

TEST_F(WindowAnimatorTest, LateNewsOfItsOwnUnhidingDoesNotEndTheNextHide) {
    mac.hide(mail);
    settle();
    clickMail();
    mac.delayEvents(0.2);
    mac.scheduler.runFor(0.45);
    ASSERT_EQ(animator.phase(mail), Phase::settling);
    animator.hide(mail, {});
    mac.scheduler.runFor(1);
    EXPECT_TRUE(isHidden());
    expectRest();
}

TEST_F(WindowAnimatorTest, AnAppShownFromOutsideIsNotFlownAnyMore) {
    mac.hide(mail);
    settle();
    clickMail();
    mac.unhide(mail);
    settle();
    expectRest();

    // One that was hidden by somebody else in the middle of a hide of ours, and shown again.
    animator.hide(mail, {});
    mac.hide(mail);
    mac.unhide(mail);
    settle();
    mac.scheduler.runFor(1);
    EXPECT_FALSE(isHidden());
    expectRest();
}

TEST_F(WindowAnimatorTest, ForgetsAnAppThatDiesInFlight) {
    for (const bool withholds : {false, true}) {
        mail = launch("mail", {.opensWindow = true});
        settle();
        flights.withholdsPictures = withholds;
        animator.hide(mail, {});
        mac.kill(mail);
        settle();
        expectRest();
    }
}

} // namespace
} // namespace larkspan
