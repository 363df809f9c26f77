#pragma once

#include "platform/Handle.h"
#include "platform/Identifiers.h"
#include "platform/Signal.h"

#include <map>
#include <string>
#include <vector>

namespace larkspan::freedesktop {

/// Starts programs that outlive us, and takes note of their ends, so that none stays a zombie.
/// Main thread only.
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

    /// The process in a session of its own, with none of our open files and no signal blocked or
    /// ignored. Below 1 on failure, with the reason in `errno`.
    ProcessId start(const Program& program);
    /// Called after a process that was started has ended.
    Handle subscribe(std::function<void(ProcessId)> callback) {
        return ended_.subscribe(std::move(callback));
    }

  private:
    void takeNote(ProcessId pid);

    std::map<ProcessId, Handle> children_;
    Signal<ProcessId> ended_;
};

} // namespace larkspan::freedesktop
