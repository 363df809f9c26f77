// Runs random days until the time is up or a rule is broken.
// larkspan_soak [SECONDS [SEED]]

#include "soak/day/DayRun.h"
#include "soak/day/Shortening.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fmt/format.h>
#include <random>

namespace {

using namespace larkspan::soak;

constexpr std::size_t stepsOfADay = 1000;
constexpr double defaultSeconds = 60;
constexpr double secondsBetweenReports = 10;

/// Flushed at once even if the output is a file: the run may be stopped at any time.
template <typename... Values>
void say(fmt::format_string<Values...> format, Values&&... values) {
    fmt::print(format, std::forward<Values>(values)...);
    std::fflush(stdout);
}

} // namespace

int main(int count, char** words) {
    using Clock = std::chrono::steady_clock;
    const double seconds = count > 1 ? std::strtod(words[1], nullptr) : defaultSeconds;
    const auto seed = count > 2 ? static_cast<std::uint32_t>(std::strtoul(words[2], nullptr, 10))
                                : std::random_device()();
    say("seed {}, {:g} seconds\n", seed, seconds);
    const auto start = Clock::now();
    double passed = 0;
    double nextReport = secondsBetweenReports;
    auto day = seed;
    for (; passed < seconds; ++day) {
        const auto steps = drawnSteps(day, stepsOfADay);
        // Apart, so that the number of the day is known even after a crash.
        if (const auto failure = liveApart(steps)) {
            say("seed {}, {}", day, describeFailure(steps, *failure));
            return 1;
        }
        passed = std::chrono::duration<double>(Clock::now() - start).count();
        if (passed < nextReport) continue;
        nextReport += secondsBetweenReports;
        say("{:.0f} s: {} days\n", passed, day - seed + 1);
    }
    say("no rule was broken in {} days\n", day - seed);
    return 0;
}
