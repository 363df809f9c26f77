// Runs random days until the time is up or a rule is broken.
// larkspan_soak [SECONDS [SEED]]

#include "soak/day/DayRun.h"
#include "soak/day/FailureReport.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fmt/format.h>
#include <random>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace larkspan::soak;
using Clock = std::chrono::steady_clock;

constexpr std::size_t stepsOfADay = 1000;
/// A day takes a fraction of a second.
constexpr unsigned longestDaySeconds = 60;
constexpr double defaultSeconds = 60;
constexpr double secondsBetweenReports = 10;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Flushed at once even if the output is a file: the next step may be the last.
template <typename... Values>
void say(fmt::format_string<Values...> format, Values&&... values) {
    fmt::print(format, std::forward<Values>(values)...);
    std::fflush(stdout);
}

/// In a separate process, so that the number of the day is known even after a crash.
int soak(double seconds, std::uint32_t firstDay, std::atomic<std::uint32_t>& day) {
    const auto start = Clock::now();
    double nextReport = secondsBetweenReports;
    std::size_t steps = 0;
    double virtualSeconds = 0;
    for (day = firstDay; secondsSince(start) < seconds; ++day) {
        alarm(longestDaySeconds);
        const auto drawn = drawnSteps(day, stepsOfADay);
        const auto outcome = live(drawn);
        alarm(0);
        steps += outcome.stepsDone;
        virtualSeconds += outcome.seconds;
        if (outcome.failure) {
            say("seed {}, ", day.load());
            say("{}", describeFailure(drawn, *outcome.failure));
            return 1;
        }
        const double passed = secondsSince(start);
        if (passed < nextReport) continue;
        nextReport += secondsBetweenReports;
        say("{:.0f} s: {} days, {} steps, {:.0f} steps/s, {:.1f} hours of the simulated Mac\n",
            passed, day - firstDay + 1, steps, static_cast<double>(steps) / passed,
            virtualSeconds / 3600);
    }
    say("no rule was broken in {} days, {} steps\n", day - firstDay, steps);
    return 0;
}

} // namespace

int main(int count, char** words) {
    const double seconds = count > 1 ? std::strtod(words[1], nullptr) : defaultSeconds;
    const auto seed = count > 2 ? static_cast<std::uint32_t>(std::strtoul(words[2], nullptr, 10))
                                : std::random_device()();
    say("seed {}, {:g} seconds\n", seed, seconds);
    auto* const day = static_cast<std::atomic<std::uint32_t>*>(
        mmap(nullptr, sizeof(std::atomic<std::uint32_t>), PROT_READ | PROT_WRITE,
             MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    const auto child = fork();
    if (child == 0) return soak(seconds, seed, *day);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status)) return WEXITSTATUS(status);
    say("seed {}, stopped by signal {}, ", day->load(), WTERMSIG(status));
    const auto steps = drawnSteps(*day, stepsOfADay);
    const auto failure = liveApart(steps);
    say("{}", failure ? describeFailure(steps, *failure) : "but not when run again\n");
    return 1;
}
