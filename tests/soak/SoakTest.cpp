#include "soak/day/DayRun.h"
#include "soak/day/Shortening.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace larkspan::soak {
namespace {

// A build with sanitizers is slower.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::uint32_t daysOfATest = 5;
#else
constexpr std::uint32_t daysOfATest = 60;
#endif
constexpr std::size_t stepsOfADay = 1000;

/// The seeds are split so that the parts can run in parallel.
class RandomDays : public testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomDays, BreakNoRule) {
    std::size_t stepsDone = 0;
    for (auto seed = GetParam(); seed < GetParam() + daysOfATest; ++seed) {
        const auto steps = drawnSteps(seed, stepsOfADay);
        const auto outcome = live(steps);
        ASSERT_FALSE(outcome.failure)
            << "seed " << seed << ", " << describeFailure(steps, *outcome.failure);
        stepsDone += outcome.stepsDone;
    }
    // Days on which few steps have an effect would find little.
    EXPECT_GT(stepsDone, daysOfATest * stepsOfADay / 2);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomDays, testing::Values(1, 1001, 2001, 3001, 4001, 5001));

/// Fails as soon as the steps contain "a" with at least 2 and, some time after it, "b".
bool holdsAThenB(const std::vector<Step>& steps) {
    const auto a = std::ranges::find_if(
        steps, [](const Step& step) { return step.act == "a" && step.a >= 2; });
    return std::any_of(a, steps.end(), [](const Step& step) { return step.act == "b"; });
}

TEST(Shortening, LeavesWhatTheFailureNeeds) {
    const std::vector<std::vector<Step>> lists{
        {{"a", 2, 0}, {"b", 0, 0}},
        {{"b", 7, 0}, {"a", 5, 3}, {"c", 0, 0}, {"a", 1, 0}, {"b", 4, 4}, {"c", 0, 0}, {"b", 0, 0}},
        {{"c", 0, 0}, {"a", 9, 0}, {"a", 9, 0}, {"b", 0, 1}, {"b", 0, 0}},
    };
    for (const auto& list : lists)
        EXPECT_THAT(shortened(list, holdsAThenB),
                    testing::ElementsAre(Step{"a", 2, 0}, Step{"b", 0, 0}));
}

TEST(Shortening, EndsWhenEveryListFails) {
    const auto always = [](const std::vector<Step>&) { return true; };
    EXPECT_THAT(shortened({{"a", 2, 0}, {"b", 0, 0}, {"c", 0, 0}}, always), testing::IsEmpty());
}

TEST(RandomDay, IsTheSameForTheSameSeed) {
    EXPECT_EQ(drawnSteps(7, 200), drawnSteps(7, 200));
    EXPECT_NE(drawnSteps(7, 200), drawnSteps(8, 200));
    const auto steps = drawnSteps(7, 300);
    EXPECT_EQ(live(steps).seconds, live(steps).seconds);
}

} // namespace
} // namespace larkspan::soak
