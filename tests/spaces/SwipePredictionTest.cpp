#include "spaces/SwipePrediction.h"

#include <gtest/gtest.h>

namespace larkspan {
namespace {

using Phase = SpaceSwipeEvent::Phase;

TEST(SwipePrediction, FollowsDistanceOrAFlickInItsDirection) {
    struct Case {
        Phase phase;
        double progress;
        double velocity;
        const char* expected;
    };
    const Case cases[] = {
        {Phase::ended, 0.5, 0, "a switch to the right"},
        {Phase::ended, -0.5, 0, "a switch to the left"},
        {Phase::ended, 0.49, 0, "no switch"},
        {Phase::ended, 0.49, -2.0, "no switch"},
        {Phase::ended, 0.5, -2.0, "a switch to the right"},
        {Phase::ended, 0.1, 1.0, "a switch to the right"},
        {Phase::ended, -0.1, -1.0, "a switch to the left"},
        {Phase::ended, 0.1, 0.99, "no switch"},
        {Phase::ended, -0.1, 1.0, "no switch"},
        {Phase::ended, 0, 5.0, "no switch"},
        {Phase::cancelled, 0.9, 3.0, "no switch"},
    };
    for (const auto& each : cases) {
        const SpaceSwipeEvent lifted{
            .phase = each.phase, .progress = each.progress, .velocity = each.velocity};
        EXPECT_EQ(SwipePrediction::of(lifted).description(), each.expected)
            << each.progress << " at " << each.velocity;
    }
}

} // namespace
} // namespace larkspan
