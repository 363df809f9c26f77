#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace larkspan::e2e {

using Environment = std::map<std::string, std::string>;

/// The test's own process, with exactly the given environment. Ends with this object.
class ChildProcess {
  public:
    struct Start {
        std::vector<std::string> command;
        Environment environment;
        /// Gets standard output and standard error.
        std::filesystem::path log;
        /// Passed to the child as file descriptor 3; -1 for none.
        int extraDescriptor = -1;
    };

    explicit ChildProcess(const Start& start);
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t pid() const { return pid_; }
    bool isRunning();
    void signal(int number) const;
    /// The exit code, or 128 and the signal's number; absent if it is still running after
    /// `seconds`.
    std::optional<int> waitForExit(double seconds);

  private:
    pid_t pid_ = -1;
    int handle_ = -1;
    std::optional<int> exitCode_;
};

struct CommandResult {
    /// As in a shell; -1 if the command did not end in time.
    int exitCode = -1;
    /// Standard output and standard error together.
    std::string output;
};

/// Runs a command until it ends, for at most ten seconds.
CommandResult runCommand(const ChildProcess::Start& start);

std::string contentsOf(const std::filesystem::path& path);

} // namespace larkspan::e2e
