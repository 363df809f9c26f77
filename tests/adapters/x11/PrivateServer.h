#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace larkspan::x11 {

/// An X server of the test's own, without a screen, and the window manager on it. Both end with it.
class PrivateServer {
  public:
    explicit PrivateServer(const std::vector<std::string>& options = {});
    ~PrivateServer();
    PrivateServer(const PrivateServer&) = delete;
    PrivateServer& operator=(const PrivateServer&) = delete;

    /// Such as ":3".
    const std::string& display() const { return display_; }
    void startManager(const std::vector<std::string>& command = {"openbox", "--sm-disable"});
    void stopManager();
    void kill();

  private:
    std::string display_;
    pid_t server_ = 0;
    pid_t manager_ = 0;
};

/// A running program; 0 when it could not be started.
pid_t startProcess(const std::vector<std::string>& command, const std::string& display = {});
/// Ends it and waits until it has.
void endProcess(pid_t process, int signal);

} // namespace larkspan::x11
