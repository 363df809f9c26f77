#pragma once

#include "diagnostics/DiagnosticsLog.h"
#include "platform/Identifiers.h"
#include "platform/Scheduler.h"

#include <map>
#include <set>

namespace larkspan {

/// The processes whose windows outlive them: what to look at when something covers the screen that
/// no app will own up to. Main thread only.
class LostProcesses {
  public:
    LostProcesses(const Scheduler& scheduler, DiagnosticsLog& log)
        : scheduler_(scheduler)
        , log_(log) {}

    /// Takes, after each window read, the owners of windows that no process runs for. One read is
    /// no proof: a process may end just before its windows do.
    void follow(const std::set<ProcessId>& missing);

    /// Since when each has been missed, in seconds since 1970-01-01 UTC.
    const std::map<ProcessId, double>& table() const { return table_; }

  private:
    const Scheduler& scheduler_;
    DiagnosticsLog& log_;
    std::set<ProcessId> missingBefore_;
    std::map<ProcessId, double> table_;
};

} // namespace larkspan
