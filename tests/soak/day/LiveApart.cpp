#include "soak/day/DayRun.h"

#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

namespace larkspan::soak {

namespace {

/// A day takes a fraction of a second; after this long, it hangs.
constexpr unsigned longestDaySeconds = 60;
constexpr char separator = '\n';

[[noreturn]] void liveAndReport(const std::vector<Step>& steps, int pipe) {
    alarm(longestDaySeconds);
    if (const auto failure = live(steps).failure) {
        const auto text = failure->rule + separator + failure->detail;
        if (write(pipe, text.data(), text.size()) < 0) _exit(1);
    }
    _exit(0);
}

std::string readAll(int pipe) {
    std::string text;
    char buffer[4096];
    for (ssize_t count = 0; (count = read(pipe, buffer, sizeof buffer)) > 0;)
        text.append(buffer, static_cast<std::size_t>(count));
    close(pipe);
    return text;
}

} // namespace

MaybeFailure liveApart(const std::vector<Step>& steps) {
    int ends[2];
    if (pipe(ends) != 0) return Failure{"the day can run in a separate process", "no pipe"};
    const auto child = fork();
    if (child < 0) return Failure{"the day can run in a separate process", "no process"};
    if (child == 0) liveAndReport(steps, ends[1]);
    close(ends[1]);
    const auto text = readAll(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFSIGNALED(status))
        return Failure{"the program does not crash", fmt::format("signal {}", WTERMSIG(status))};
    if (WEXITSTATUS(status) != 0)
        return Failure{"the program does not crash", fmt::format("exit {}", WEXITSTATUS(status))};
    if (text.empty()) return std::nullopt;
    const auto end = text.find(separator);
    return Failure{text.substr(0, end), text.substr(end + 1)};
}

} // namespace larkspan::soak
