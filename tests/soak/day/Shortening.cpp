#include "soak/day/Shortening.h"

#include "soak/day/DayRun.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace larkspan::soak {

namespace {

using Fails = std::function<bool(const std::vector<Step>&)>;

/// Removes what can be removed in runs of that length; returns whether anything could.
bool leaveOut(std::vector<Step>& steps, std::size_t length, const Fails& fails) {
    bool isShorter = false;
    for (std::size_t begin = 0; begin < steps.size();) {
        const auto end = std::min(begin + length, steps.size());
        auto rest = steps;
        rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(begin),
                   rest.begin() + static_cast<std::ptrdiff_t>(end));
        if (fails(rest)) {
            steps = std::move(rest);
            isShorter = true;
        } else {
            begin = end;
        }
    }
    return isShorter;
}

void makeSmall(std::vector<Step>& steps, int Step::*number, const Fails& fails) {
    for (auto& step : steps) {
        for (int smaller = 0; smaller < step.*number; ++smaller) {
            const int before = std::exchange(step.*number, smaller);
            if (fails(steps)) break;
            step.*number = before;
        }
    }
}

} // namespace

std::vector<Step> shortened(std::vector<Step> steps, const Fails& fails) {
    for (auto length = std::max<std::size_t>(steps.size() / 2, 1); length > 0;) {
        const bool isShorter = leaveOut(steps, length, fails);
        // A single step may have become unnecessary when a later one was removed.
        if (!isShorter || length > 1) length /= 2;
    }
    makeSmall(steps, &Step::a, fails);
    makeSmall(steps, &Step::b, fails);
    return steps;
}

std::string describeFailure(const std::vector<Step>& steps, Failure failure) {
    const auto fewest = shortened(steps, [&](const std::vector<Step>& fewer) {
        auto found = liveApart(fewer);
        const bool isSame = found && found->rule == failure.rule;
        if (isSame) failure = *std::move(found);
        return isSame;
    });
    auto text = fmt::format("broken: {}\n{}\nwith {} steps:\n", failure.rule, failure.detail,
                            fewest.size());
    for (const auto& [act, a, b] : fewest)
        text += fmt::format("{{\"{}\", {}, {}}},\n", act, a, b);
    return text;
}

} // namespace larkspan::soak
