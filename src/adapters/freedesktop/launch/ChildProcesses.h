#pragma once

#include "platform/Handle.h"
#include "platform/Identifiers.h"
#include "platform/Signal.h"

#include <map>
#include <string>
#include <vector>

namespace larkspan::freedesktop {

/// Starts programs that outlive us, and reaps them when they end, so that none stays a zombie. Main
/// thread only.
class ChildProcesses {
  public:
    struct Program {
        /// An absolute path.
        std::string path;
        std::vector<std::string> arguments;
        /// "NAME=value".
        std::vector<std::string> environment;
        /// Empty for ours.
        std::string workingFolder;
    };

    /// Starts the process in its own session, with none of our open files and no signal blocked or
    /// ignored. Returns a value below 1 on failure, with the reason in `errno`.
    ProcessId start(const Program& program);
    /// Called after a started process has ended.
    Handle subscribe(std::function<void(ProcessId)> callback) {
        return ended_.subscribe(std::move(callback));
    }

  private:
    void takeNote(ProcessId pid);

    std::map<ProcessId, Handle> children_;
    Signal<ProcessId> ended_;
};

} // namespace larkspan::freedesktop
