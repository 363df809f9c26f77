#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace larkspan::x11 {

/// The test's own X server, without a screen, and its window manager. Both end with this object.
class PrivateServer {
  public:
    explicit PrivateServer(const std::vector<std::string>& options = {});
    ~PrivateServer();
    PrivateServer(const PrivateServer&) = delete;
    PrivateServer& operator=(const PrivateServer&) = delete;

    /// A name such as ":3".
    const std::string& display() const { return display_; }
    void startManager(const std::vector<std::string>& command = {"openbox", "--sm-disable"});
    void stopManager();
    void kill();

  private:
    std::string display_;
    pid_t server_ = 0;
    pid_t manager_ = 0;
};

/// Starts a program; 0 on failure.
pid_t startProcess(const std::vector<std::string>& command, const std::string& display = {});
/// Ends it and waits for it.
void endProcess(pid_t process, int signal);

} // namespace larkspan::x11
