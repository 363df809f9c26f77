#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <sys/un.h>

namespace larkspan::qt {

/// The path of the control socket with a given name, in a folder that belongs to this user and is
/// closed to everyone else.
class ControlAddress {
  public:
    /// The address, after creating its folder; absent if there can be no such folder.
    static std::optional<ControlAddress> make(std::string_view name);
    /// The address, if its folder exists.
    static std::optional<ControlAddress> find(std::string_view name);

    const std::string& path() const { return path_; }
    sockaddr_un socketName() const;

  private:
    static std::optional<ControlAddress> inFolder(const std::string& folder, std::string_view name);
    explicit ControlAddress(std::string path);

    std::string path_;
};

/// Whether the peer of a connected socket is a process of this user.
bool isThisUser(int socket);

} // namespace larkspan::qt
