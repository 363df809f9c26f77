#include "adapters/x11/PrivateServer.h"

#include <csignal>
#include <cstdlib>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace larkspan::x11 {

namespace {

// The server writes the number of its display when it accepts connections.
std::string readDisplay(int descriptor) {
    std::string number;
    char character = 0;
    while (read(descriptor, &character, 1) == 1 && character != '\n')
        number += character;
    return number;
}

} // namespace

pid_t startProcess(const std::vector<std::string>& command, const std::string& display) {
    std::vector<std::string> variables{"DISPLAY=" + display};
    for (const char* name : {"PATH", "HOME", "LANG"})
        if (const char* value = std::getenv(name))
            variables.push_back(name + ("=" + std::string(value)));
    std::vector<char*> arguments, environment;
    for (const auto& word : command)
        arguments.push_back(const_cast<char*>(word.c_str()));
    for (const auto& variable : variables)
        environment.push_back(const_cast<char*>(variable.c_str()));
    arguments.push_back(nullptr);
    environment.push_back(nullptr);

    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&files, 2, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    if (posix_spawnp(&process, arguments[0], &files, nullptr, arguments.data(),
                     environment.data()) != 0)
        process = 0;
    posix_spawn_file_actions_destroy(&files);
    return process;
}

void endProcess(pid_t process, int signal) {
    if (process <= 0) return;
    ::kill(process, signal);
    waitpid(process, nullptr, 0);
}

PrivateServer::PrivateServer(const std::vector<std::string>& options) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    fcntl(ends[0], F_SETFD, FD_CLOEXEC);
    std::vector<std::string> command{"Xvfb",      "-displayfd", std::to_string(ends[1]),
                                     "-screen",   "0",          "1280x720x24",
                                     "-nolisten", "tcp",        "-noreset"};
    command.insert(command.end(), options.begin(), options.end());
    server_ = startProcess(command);
    close(ends[1]);
    const auto number = readDisplay(ends[0]);
    close(ends[0]);
    if (number.empty()) throw std::runtime_error("Xvfb did not start");
    display_ = ":" + number;
}

PrivateServer::~PrivateServer() {
    stopManager();
    kill();
}

void PrivateServer::startManager(const std::vector<std::string>& command) {
    manager_ = startProcess(command, display_);
    if (manager_ == 0) throw std::runtime_error("no " + command.front());
}

void PrivateServer::stopManager() {
    endProcess(std::exchange(manager_, 0), SIGKILL);
}

void PrivateServer::kill() {
    endProcess(std::exchange(server_, 0), SIGKILL);
}

} // namespace larkspan::x11
