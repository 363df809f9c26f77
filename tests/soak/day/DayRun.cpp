#include "soak/day/DayRun.h"

#include "soak/day/Act.h"
#include "soak/day/AtRest.h"
#include "soak/day/Watch.h"

#include <algorithm>
#include <random>

namespace larkspan::soak {

namespace {

class Run {
  public:
    void take(const Step& step) {
        if (outcome_.failure || !day_.perform(step)) return;
        ++outcome_.stepsDone;
        outcome_.failure = watch_.afterStep();
        if (!outcome_.failure && step.act == "rest") rest();
    }
    Outcome end() {
        for (const Step& step : {Step{"rest"}, Step{"quitProgram"}, Step{"rest"}})
            take(step);
        outcome_.seconds = day_.mac.scheduler.uptime();
        return outcome_;
    }

  private:
    void rest() {
        outcome_.failure = watch_.atRest();
        if (!outcome_.failure) outcome_.failure = failureAtRest(day_);
    }

    Day day_;
    Watch watch_{day_};
    Outcome outcome_;
};

} // namespace

std::vector<Step> drawnSteps(std::uint32_t seed, std::size_t count) {
    std::mt19937 random(seed);
    // Not a standard distribution: those differ between libraries, but the same seed must give the
    // same steps.
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<std::uint32_t>(limit));
    };
    int total = 0;
    for (const Act& act : acts())
        total += act.weight;
    std::vector<Step> steps;
    while (steps.size() < count) {
        int lot = below(total);
        const auto act =
            std::ranges::find_if(acts(), [&](const Act& each) { return (lot -= each.weight) < 0; });
        const int a = below(act->countOfA);
        steps.push_back({act->name, a, below(act->countOfB)});
    }
    return steps;
}

Outcome live(const std::vector<Step>& steps) {
    Run run;
    for (const Step& step : steps)
        run.take(step);
    return run.end();
}

} // namespace larkspan::soak
