#include "adapters/qt/ControlAddress.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <functional>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace larkspan::qt {

namespace {

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && value[0] == '/' ? value : "";
}

/// The folder for files that only this user's programs may read, while they run.
std::string usersFolder() {
#ifdef __APPLE__
    // Not the temporary folder: files that are not used are deleted there after some days, even the
    // lock of a bar that has run for weeks.
    const std::string home = variable("HOME");
    return home.empty() ? home : home + "/Library/Application Support";
#else
    return variable("XDG_RUNTIME_DIR");
#endif
}

/// In the common folder, anybody could create this name: `isClosedFolder` checks the owner.
std::string folderPath() {
    const std::string users = usersFolder();
    struct stat status {};
    if (!users.empty() && stat(users.c_str(), &status) == 0 && access(users.c_str(), W_OK) == 0)
        return users + "/larkspan";
    const std::string temporary = variable("TMPDIR");
    return fmt::format("{}/larkspan-{}", temporary.empty() ? "/tmp" : temporary, geteuid());
}

bool isClosedFolder(const std::string& folder) {
    struct stat status {};
    // Not `stat`: somebody else could have put a link there.
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid() && (status.st_mode & (S_IRWXG | S_IRWXO)) == 0;
}

} // namespace

std::optional<ControlAddress> ControlAddress::make(std::string_view name) {
    const std::string folder = folderPath();
    if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST) return std::nullopt;
    return inFolder(folder, name);
}

std::optional<ControlAddress> ControlAddress::find(std::string_view name) {
    return inFolder(folderPath(), name);
}

std::optional<ControlAddress> ControlAddress::inFolder(const std::string& folder,
                                                       std::string_view name) {
    if (!isClosedFolder(folder)) return std::nullopt;
    std::string file(name);
    std::ranges::replace(file, '/', '_');
    constexpr std::size_t longest = sizeof(sockaddr_un::sun_path) - 1;
    std::string path = fmt::format("{}/{}.socket", folder, file);
    // The length of a display's name is not limited, that of a socket's path is.
    if (path.size() > longest)
        path = fmt::format("{}/{:x}.socket", folder, std::hash<std::string_view>{}(name));
    if (path.size() > longest) return std::nullopt;
    return ControlAddress(std::move(path));
}

ControlAddress::ControlAddress(std::string path)
    : path_(std::move(path)) {}

sockaddr_un ControlAddress::socketName() const {
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    path_.copy(name.sun_path, sizeof name.sun_path - 1);
    return name;
}

bool isThisUser(int socket) {
#ifdef SO_PEERCRED
    struct ucred peer {};
    socklen_t length = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 &&
           peer.uid == geteuid();
#else
    uid_t user = 0;
    gid_t group = 0;
    return getpeereid(socket, &user, &group) == 0 && user == geteuid();
#endif
}

} // namespace larkspan::qt
