#include "spaces/SwipeListener.h"

#include "spaces/SwitchLogWorld.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Phase = SpaceSwipeEvent::Phase;

class SwipeListenerTest : public testing::Test, protected SwitchLogWorld {
  protected:
    void take(const SpaceSwipeEvent& step) {
        EXPECT_TRUE(mac.scheduler.isMainThread());
        steps.push_back(step);
        constexpr const char* names[] = {"began", "changed", "ended", "cancelled"};
        heard.push_back(fmt::format("{} {:g} {:g}", names[static_cast<std::size_t>(step.phase)],
                                    step.progress, step.velocity));
    }
    static sim::SimEvent raw(std::int64_t phase, double progress = 0, std::int64_t kind = 23,
                             std::int64_t motion = 1) {
        sim::SimEvent event(30);
        event.withInteger(110, kind).withInteger(123, motion).withInteger(132, phase);
        event.withDouble(124, progress).withDouble(129, 1.5);
        return event;
    }
    void send(const sim::SimEvent& event) {
        mac.eventTaps.send(event);
        mac.scheduler.runUntilIdle();
    }
    std::vector<std::string> takeHeard() { return std::exchange(heard, {}); }

    std::vector<SpaceSwipeEvent> steps;
    std::vector<std::string> heard;
    SwipeListener listener{platform.scheduler,
                           platform.eventTaps,
                           platform.windowServer,
                           platform.screens,
                           log,
                           [this](const auto& step) { take(step); }};
};

TEST_F(SwipeListenerTest, HandsEachStepToTheMainThread) {
    ASSERT_TRUE(listener.start());
    mac.swipe(mac.displayAt(0), {.progress = 0.6, .velocity = 2, .seconds = 0.05});
    mac.scheduler.runFor(1);
    EXPECT_THAT(heard, ElementsAre("began 0 0", "changed 0.2 0", "changed 0.4 0", "ended 0.6 2"));
    ASSERT_TRUE(steps.front().spaces);
    EXPECT_EQ(steps.front().spaces->shown, std::set{mac.spaceAt(mac.displayAt(0), 0)});
    EXPECT_FALSE(steps.back().spaces);
    EXPECT_EQ(mac.world().displays.front().current, 1U);
}

TEST_F(SwipeListenerTest, StampsEachStep) {
    ASSERT_TRUE(listener.start());
    send(raw(1));
    send(raw(2, -0.25));
    send(raw(4, -0.5));
    send(raw(1));
    send(raw(8, 0.123456));
    EXPECT_THAT(newLines(),
                ElementsAre("──── switch timeline starts", "started; swipe: began progress 0.0000",
                            "+0ms swipe: changed progress -0.2500",
                            "+0ms swipe: ended progress -0.5000, 1.50 per second",
                            "+0ms swipe: began progress 0.0000",
                            "+0ms swipe: cancelled progress 0.1235"));
}

TEST_F(SwipeListenerTest, IgnoresWhatIsNoStepOfASwipeInProgress) {
    ASSERT_TRUE(listener.start());
    for (const std::int64_t phase : {2, 4, 8})
        send(raw(phase));
    EXPECT_THAT(takeHeard(), IsEmpty()) << "nothing began";
    send(raw(1, 0, 23, 2));
    send(raw(1, 0, 22, 1));
    send(sim::SimEvent(30));
    EXPECT_THAT(takeHeard(), IsEmpty()) << "vertical, or another gesture";
    send(raw(1));
    for (const std::int64_t phase : {0, 3, 16, 128})
        send(raw(phase, 0.3));
    EXPECT_THAT(takeHeard(), ElementsAre("began 0 0"));
    send(raw(2, 0.3));
    EXPECT_THAT(takeHeard(), ElementsAre("changed 0.3 0")) << "unknown phases end nothing";
    send(raw(8, 0.3));
    send(raw(2, 0.4));
    send(raw(4, 0.4));
    EXPECT_THAT(takeHeard(), ElementsAre("cancelled 0.3 0"));
}

TEST_F(SwipeListenerTest, ListensOnAfterTheSystemDisabledTheTap) {
    ASSERT_TRUE(listener.start());
    for (const std::uint32_t reason :
         {TapEvent::disabledByTimeout, TapEvent::disabledByUserInput}) {
        mac.eventTaps.disable(reason);
        send(raw(1));
        EXPECT_THAT(takeHeard(), IsEmpty()) << "lost while disabled";
        send(raw(1));
        EXPECT_THAT(takeHeard(), ElementsAre("began 0 0"));
    }
}

TEST_F(SwipeListenerTest, SaysSoWhenItCannotListen) {
    mac.eventTaps.refuses = true;
    EXPECT_FALSE(listener.start());
    EXPECT_THAT(newLines(), ElementsAre("swipe: could not listen for swipes"));
}

TEST_F(SwipeListenerTest, ReadsTheSpacesOfTheDisplaysThatAreThereNow) {
    ASSERT_TRUE(listener.start());
    const auto added = mac.addDisplay("800x600 spaces=2");
    mac.scheduler.runUntilIdle();
    send(raw(1));
    ASSERT_TRUE(steps.back().spaces);
    EXPECT_TRUE(steps.back().spaces->spaces.contains(added));
    mac.removeFunction("CGSCopyManagedDisplaySpaces");
    send(raw(1));
    EXPECT_FALSE(steps.back().spaces);
}

TEST(SwipeListenerEnd, WhatIsUnderWayFindsNobody) {
    SwitchLogWorld world;
    int steps = 0;
    {
        SwipeListener listener(world.platform.scheduler, world.platform.eventTaps,
                               world.platform.windowServer, world.platform.screens, world.log,
                               [&](const auto&) { ++steps; });
        ASSERT_TRUE(listener.start());
        world.mac.swipe(world.mac.displayAt(0));
        EXPECT_EQ(world.mac.eventTaps.count(), 1U);
    }
    EXPECT_EQ(world.mac.eventTaps.count(), 0U);
    world.mac.scheduler.runFor(1);
    EXPECT_EQ(steps, 0);
}

} // namespace
} // namespace larkspan
