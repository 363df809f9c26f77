#include "diagnostics/LostProcesses.h"

#include <fmt/format.h>

namespace larkspan {

namespace {

constexpr const char* category = "windows";
/// For how long windows may outlive their process before it counts as lost, in seconds. Longer than
/// it takes until a polled desktop is read again in full.
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

/// It stays one until a read finds its windows gone, or is lost once its time is up; a desktop that
/// tells of its changes may have no further read in between.
void LostProcesses::suspect(ProcessId pid) {
    const double since = scheduler_.wallClock();
    suspects_[pid] = scheduler_.after(patience, [this, pid, since] {
        table_.emplace(pid, since);
        log_.write(category, fmt::format("process {} has gone, its windows have not", pid));
        suspects_.erase(pid);
    });
}

} // namespace larkspan
