#include "diagnostics/LostProcesses.h"

#include <fmt/format.h>

namespace larkspan {

namespace {

constexpr const char* category = "windows";
/// The seconds that windows may outlive their process before it counts as lost. Longer than the
/// interval of full reads of a polled desktop.
constexpr double patience = 3;

} // namespace

void LostProcesses::follow(const std::set<ProcessId>& owners) {
    std::set<ProcessId> missing;
    for (const auto pid : owners)
        if (!workspace_.hasProcess(pid)) missing.insert(pid);
    forgetThoseBeside(missing);
    for (const auto pid : missing)
        if (!table_.contains(pid) && !suspects_.contains(pid)) suspect(pid);
}

void LostProcesses::forgetThoseBeside(const std::set<ProcessId>& missing) {
    std::erase_if(suspects_, [&](const auto& entry) { return !missing.contains(entry.first); });
    std::erase_if(table_, [&](const auto& entry) {
        if (missing.contains(entry.first)) return false;
        log_.write(category, fmt::format("the windows of process {} have gone too", entry.first));
        return true;
    });
}

/// It stays a suspect until a read finds that its windows are gone, or is lost when its time is up.
/// A desktop that announces changes may have no further read in between.
void LostProcesses::suspect(ProcessId pid) {
    const double since = scheduler_.wallClock();
    suspects_[pid] = scheduler_.after(patience, [this, pid, since] {
        table_.emplace(pid, since);
        log_.write(category, fmt::format("process {} has gone, its windows have not", pid));
        suspects_.erase(pid);
    });
}

} // namespace larkspan
