#include "spaces/SpaceSlide.h"

#include "spaces/SwitchLogWorld.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using Phase = SpaceSwipeEvent::Phase;

class SpaceSlideTest : public testing::Test, protected SwitchLogWorld {
  protected:
    SpaceSlideTest() {
        slide.onSliding = [this] { isHeld = true; };
        slide.onRest = [this] { isHeld = false; };
        log.stamp("test", "opens the timeline", SpaceSwitchLog::Mark::starting);
        newLines();
    }
    void step(Phase phase, double progress = 0, double velocity = 0) {
        slide.step({.phase = phase, .progress = progress, .velocity = velocity});
        EXPECT_TRUE(isHeld);
    }

    SpaceSlide slide{platform.scheduler, log};
    bool isHeld = false;
};

TEST_F(SpaceSlideTest, LandsWhenTheSystemTellsOfTheSwitch) {
    step(Phase::began);
    step(Phase::ended, 0.6, -0.25);
    slide.spaceChanged();
    EXPECT_FALSE(isHeld);
    EXPECT_THAT(newLines(),
                ElementsAre("+0ms swipe: fingers lifted at 0.60, -0.25 per second: expecting a "
                            "switch to the right",
                            "+0ms swipe: switched as expected"));
}

TEST_F(SpaceSlideTest, ComesToRestWhateverTheSystemKeepsToItself) {
    struct Case {
        Phase phase;
        double progress;
        double seconds;
        const char* outcome;
    };
    const Case cases[] = {
        {Phase::ended, 0.2, SpaceSlide::slidingBack, "stayed as expected"},
        {Phase::cancelled, 0.8, SpaceSlide::slidingBack, "stayed as expected"},
        {Phase::ended, -0.8, SpaceSlide::longestLanding, "stayed not as expected"},
    };
    for (const auto& each : cases) {
        step(Phase::began);
        step(each.phase, each.progress);
        mac.scheduler.runFor(each.seconds - 0.01);
        EXPECT_TRUE(isHeld) << each.outcome;
        newLines();
        mac.scheduler.runFor(0.02);
        EXPECT_FALSE(isHeld) << each.outcome;
        const auto lines = newLines();
        ASSERT_FALSE(lines.empty());
        EXPECT_THAT(lines.front(), testing::EndsWith(each.outcome));
        mac.scheduler.runFor(0.1);
        log.stamp("test", "keeps a timeline", SpaceSwitchLog::Mark::starting);
    }
    EXPECT_FALSE(slide.isSliding());
}

TEST_F(SpaceSlideTest, TellsOfASwitchThatWasNotExpected) {
    step(Phase::began);
    step(Phase::ended, 0.2);
    newLines();
    slide.spaceChanged();
    EXPECT_THAT(newLines(), ElementsAre("+0ms swipe: switched not as expected"));
    slide.spaceChanged();
    mac.scheduler.runFor(1);
    EXPECT_THAT(newLines(), ElementsAre()) << "it has landed";
}

TEST_F(SpaceSlideTest, ASwipeWhoseEndIsLostComesToRest) {
    step(Phase::began);
    mac.scheduler.runFor(1.5);
    step(Phase::changed, 0.3);
    mac.scheduler.runFor(1.5);
    EXPECT_TRUE(isHeld) << "fingers that move";
    mac.scheduler.runFor(0.6);
    EXPECT_FALSE(isHeld);
    EXPECT_EQ(slide.isSliding(), false);
}

TEST_F(SpaceSlideTest, AnEarlierSwitchDoesNotEndASwipeInProgress) {
    step(Phase::began);
    step(Phase::ended, 1);
    step(Phase::began);
    slide.spaceChanged();
    EXPECT_TRUE(isHeld);
    step(Phase::ended, 1);
    slide.spaceChanged();
    EXPECT_FALSE(isHeld);
}

} // namespace
} // namespace larkspan
