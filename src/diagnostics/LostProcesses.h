#pragma once

#include "diagnostics/DiagnosticsLog.h"
#include "platform/Handle.h"
#include "platform/Identifiers.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <map>
#include <set>

namespace larkspan {

/// The processes whose windows outlive them: where to look if the screen is covered by something
/// that belongs to no app. Main thread only.
class LostProcesses {
  public:
    LostProcesses(Scheduler& scheduler, const Workspace& workspace, DiagnosticsLog& log)
        : scheduler_(scheduler)
        , workspace_(workspace)
        , log_(log) {}
    LostProcesses(const LostProcesses&) = delete;
    LostProcesses& operator=(const LostProcesses&) = delete;

    /// Call it after each full window read, with the owners of all windows.
    void follow(const std::set<ProcessId>& owners);

    /// Since when each has been missing, in seconds since 1970-01-01 UTC.
    const std::map<ProcessId, double>& table() const { return table_; }

  private:
    void forgetThoseBeside(const std::set<ProcessId>& missing);
    void suspect(ProcessId pid);

    Scheduler& scheduler_;
    const Workspace& workspace_;
    DiagnosticsLog& log_;
    /// Missing for a short time: a process may end a moment before its windows do.
    std::map<ProcessId, Handle> suspects_;
    std::map<ProcessId, double> table_;
};

} // namespace larkspan
