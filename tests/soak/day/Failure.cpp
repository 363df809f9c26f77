#include "soak/day/Failure.h"

#include "soak/day/DayRun.h"
#include "soak/day/Shortening.h"

#include <fmt/format.h>

namespace larkspan::soak {

std::string describeFailure(const std::vector<Step>& steps, Complaint complaint) {
    const auto fewest = shortened(steps, [&](const std::vector<Step>& fewer) {
        auto verdict = liveApart(fewer);
        const bool isSame = verdict && verdict->rule == complaint.rule;
        if (isSame) complaint = *std::move(verdict);
        return isSame;
    });
    return fmt::format("broken: {}\n{}\nwith {} steps:\n{}", complaint.rule, complaint.detail,
                       fewest.size(), listed(fewest));
}

} // namespace larkspan::soak
