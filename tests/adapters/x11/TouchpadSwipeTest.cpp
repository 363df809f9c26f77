#include "adapters/x11/input/TouchpadSwipe.h"

#include <gmock/gmock.h>

namespace larkspan::x11 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TouchpadSwipe, BeginsWithTheFirstMotion) {
    TouchpadSwipe swipe;
    swipe.begin();
    EXPECT_THAT(swipe.move(0, 0, 1000), IsEmpty());
    EXPECT_THAT(swipe.move(-40, 10, 1010),
                ElementsAre(SwipeStep{1, 1, 0, 0}, SwipeStep{2, 1, 0.1, 0}));
    EXPECT_THAT(swipe.move(-40, 90, 1020), ElementsAre(SwipeStep{2, 1, 0.2, 0}))
        << "the direction does not change";
    const auto lifted = swipe.lift(false, 1030);
    ASSERT_TRUE(lifted);
    EXPECT_EQ(lifted->phase, 4);
    EXPECT_DOUBLE_EQ(lifted->progress, 0.2);
}

TEST(TouchpadSwipe, DistinguishesVerticalFromHorizontal) {
    TouchpadSwipe swipe;
    EXPECT_THAT(swipe.move(30, -40, 1000),
                ElementsAre(SwipeStep{1, 2, 0, 0}, SwipeStep{2, 2, 0.1, 0}));
    swipe.begin();
    EXPECT_THAT(swipe.move(40, 30, 2000),
                ElementsAre(SwipeStep{1, 1, 0, 0}, SwipeStep{2, 1, -0.1, 0}))
        << "a new swipe starts from nothing";
}

TEST(TouchpadSwipe, MeasuresTheVelocityOfTheLastMotions) {
    struct Case {
        const char* name;
        /// One motion of 40 units to the left at each of these times.
        std::vector<std::uint32_t> times;
        std::uint32_t lift;
        double velocity;
    };
    const Case cases[] = {
        {"steady", {1000, 1020, 1040, 1060}, 1080, 0.3 * 1000 / 80},
        {"only the newest count", {0, 500, 1000, 1050}, 1100, 0.1 * 1000 / 100},
        {"fingers that rested", {1000, 1020}, 1500, 0},
        {"a single motion", {1000}, 1000, 0},
        {"the server's time starts again", {0xFFFFFFF6, 10}, 20, 0.1 * 1000 / 30},
    };
    for (const auto& each : cases) {
        TouchpadSwipe swipe;
        for (const auto time : each.times)
            swipe.move(-40, 0, time);
        const auto lifted = swipe.lift(false, each.lift);
        ASSERT_TRUE(lifted) << each.name;
        EXPECT_NEAR(lifted->velocity, each.velocity, 1e-9) << each.name;
    }
}

TEST(TouchpadSwipe, EndsOnceAndOnlyAfterABegin) {
    TouchpadSwipe swipe;
    swipe.begin();
    EXPECT_FALSE(swipe.lift(false, 1000)) << "fingers that never moved";
    swipe.move(40, 0, 1010);
    EXPECT_EQ(swipe.lift(true, 1020)->phase, 8);
    EXPECT_FALSE(swipe.lift(false, 1030));
}

} // namespace
} // namespace larkspan::x11
