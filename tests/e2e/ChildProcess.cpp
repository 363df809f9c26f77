#include "ChildProcess.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace larkspan::e2e {

namespace {

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (auto& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> assignments(const Environment& environment) {
    std::vector<std::string> texts;
    for (const auto& [name, value] : environment)
        texts.push_back(name + "=" + value);
    return texts;
}

} // namespace

ChildProcess::ChildProcess(const Start& start) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, start.log.c_str(),
                                     O_WRONLY | O_CREAT | O_APPEND, 0600);
    posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    if (start.extraDescriptor >= 0)
        posix_spawn_file_actions_adddup2(&actions, start.extraDescriptor, 3);

    auto command = start.command;
    auto environment = assignments(start.environment);
    const int error = posix_spawnp(&pid_, command.front().c_str(), &actions, nullptr,
                                   pointersTo(command).data(), pointersTo(environment).data());
    posix_spawn_file_actions_destroy(&actions);
    if (error != 0) throw std::runtime_error("cannot start " + command.front());
    handle_ = static_cast<int>(syscall(SYS_pidfd_open, pid_, 0));
}

ChildProcess::~ChildProcess() {
    if (isRunning()) {
        signal(SIGKILL);
        waitForExit(5);
    }
    close(handle_);
}

bool ChildProcess::isRunning() {
    return !waitForExit(0);
}

void ChildProcess::signal(int number) const {
    if (!exitCode_) kill(pid_, number);
}

std::optional<int> ChildProcess::waitForExit(double seconds) {
    if (exitCode_) return exitCode_;
    pollfd ended{handle_, POLLIN, 0};
    poll(&ended, 1, static_cast<int>(seconds * 1000));
    int status = 0;
    if (waitpid(pid_, &status, WNOHANG) != pid_) return std::nullopt;
    exitCode_ = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    return exitCode_;
}

CommandResult runCommand(const ChildProcess::Start& start) {
    std::filesystem::remove(start.log);
    ChildProcess process(start);
    const auto exitCode = process.waitForExit(10);
    return {exitCode.value_or(-1), contentsOf(start.log)};
}

std::string contentsOf(const std::filesystem::path& path) {
    std::ifstream file(path);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace larkspan::e2e
