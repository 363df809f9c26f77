#pragma once

#include "diagnostics/DiagnosticsLog.h"
#include "platform/Handle.h"
#include "platform/Identifiers.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

#include <map>
#include <set>

namespace larkspan {

/// The processes whose windows outlive them: what to look at when something covers the screen that
/// no app will own up to. Main thread only.
class LostProcesses {
  public:
    LostProcesses(Scheduler& scheduler, const Workspace& workspace, DiagnosticsLog& log)
        : scheduler_(scheduler)
        , workspace_(workspace)
        , log_(log) {}
    LostProcesses(const LostProcesses&) = delete;
    LostProcesses& operator=(const LostProcesses&) = delete;

    /// Takes, after each full window read, the owners of all windows.
    void follow(const std::set<ProcessId>& owners);

    /// Since when each has been missed, in seconds since 1970-01-01 UTC.
    const std::map<ProcessId, double>& table() const { return table_; }

  private:
    void forgetThoseBeside(const std::set<ProcessId>& missing);
    void suspect(ProcessId pid);

    Scheduler& scheduler_;
    const Workspace& workspace_;
    DiagnosticsLog& log_;
    /// Missed, but not for long: a process may end a moment before its windows do.
    std::map<ProcessId, Handle> suspects_;
    std::map<ProcessId, double> table_;
};

} // namespace larkspan
