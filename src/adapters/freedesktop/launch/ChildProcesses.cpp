#include "adapters/freedesktop/launch/ChildProcesses.h"

#include "adapters/freedesktop/launch/watchProcessExit.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace larkspan::freedesktop {

namespace {

std::vector<char*> pointers(const std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (const auto& text : texts) {
        // `posix_spawn` does not write to it, despite its type.
        result.push_back(const_cast<char*>(text.c_str())); // NOLINT
    }
    result.push_back(nullptr);
    return result;
}

/// How the new process differs from a copy of ours.
class SpawnSettings {
  public:
    explicit SpawnSettings(const std::string& workingFolder) {
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&files, STDERR_FILENO + 1);
        if (!workingFolder.empty())
            posix_spawn_file_actions_addchdir_np(&files, workingFolder.c_str());

        posix_spawnattr_init(&attributes);
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setsigdefault(&attributes, &all);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK |
                                                  POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    posix_spawn_file_actions_t files{};
    posix_spawnattr_t attributes{};
};

} // namespace

ProcessId ChildProcesses::start(const Program& program) {
    const SpawnSettings settings(program.workingFolder);
    pid_t pid = -1;
    errno = posix_spawn(&pid, program.path.c_str(), &settings.files, &settings.attributes,
                        pointers(program.arguments).data(), pointers(program.environment).data());
    if (errno != 0) return -1;
    children_[pid] = watchProcessExit(pid, [this, pid] { takeNote(pid); });
    return pid;
}

void ChildProcesses::takeNote(ProcessId pid) {
    const auto child = children_.extract(pid);
    waitpid(pid, nullptr, WNOHANG);
    ended_.emit(pid);
}

} // namespace larkspan::freedesktop
