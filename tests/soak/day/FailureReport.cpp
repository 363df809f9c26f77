#include "soak/day/FailureReport.h"

#include "soak/day/DayRun.h"
#include "soak/day/Shortening.h"

#include <fmt/format.h>

namespace larkspan::soak {

std::string describeFailure(const std::vector<Step>& steps, Failure failure) {
    const auto fewest = shortened(steps, [&](const std::vector<Step>& fewer) {
        auto found = liveApart(fewer);
        const bool isSame = found && found->rule == failure.rule;
        if (isSame) failure = *std::move(found);
        return isSame;
    });
    return fmt::format("broken: {}\n{}\nwith {} steps:\n{}", failure.rule, failure.detail,
                       fewest.size(), listed(fewest));
}

} // namespace larkspan::soak
