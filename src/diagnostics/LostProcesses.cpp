#include "diagnostics/LostProcesses.h"

#include <fmt/format.h>

namespace larkspan {

namespace {

constexpr const char* category = "windows";

} // namespace

void LostProcesses::follow(const std::set<ProcessId>& missing) {
    if (missing.empty() && missingBefore_.empty()) return;
    std::erase_if(table_, [&](const auto& entry) {
        if (missing.contains(entry.first)) return false;
        log_.write(category, fmt::format("the windows of process {} have gone too", entry.first));
        return true;
    });
    for (const auto pid : missing) {
        if (!missingBefore_.contains(pid)) continue;
        if (table_.emplace(pid, scheduler_.wallClock()).second)
            log_.write(category, fmt::format("process {} has gone, its windows have not", pid));
    }
    missingBefore_ = missing;
}

} // namespace larkspan
