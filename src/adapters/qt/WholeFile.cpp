#include "adapters/qt/WholeFile.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace larkspan::qt {

namespace {

namespace fs = std::filesystem;

/// Missing folders are created for this user only, as the specification of configuration folders
/// requires.
bool makeFolder(const fs::path& folder) {
    std::error_code error;
    if (folder.empty() || fs::is_directory(folder, error)) return true;
    return makeFolder(folder.parent_path()) &&
           (mkdir(folder.c_str(), S_IRWXU) == 0 || errno == EEXIST);
}

bool writeAll(int file, std::string_view text) {
    while (!text.empty()) {
        const auto count = ::write(file, text.data(), text.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

bool writeNewFile(const std::string& path, std::string_view text) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC,
                          S_IRUSR | S_IWUSR);
    if (file < 0) return false;
    const bool isWritten = writeAll(file, text) && fsync(file) == 0;
    return (close(file) == 0) && isWritten;
}

void flushFolder(const fs::path& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) return;
    fsync(descriptor);
    close(descriptor);
}

} // namespace

WholeFile::WholeFile(std::string path)
    : path_(std::move(path)) {}

/// The target of the links, whether or not the file exists.
std::string WholeFile::target() const {
    fs::path path = path_;
    std::error_code error;
    for (int step = 0; step < 16 && fs::is_symlink(path, error); ++step) {
        const fs::path next = fs::read_symlink(path, error);
        if (error) break;
        path = next.is_absolute() ? next : path.parent_path() / next;
    }
    return path.string();
}

WholeFile::Contents WholeFile::read() const {
    const int file = open(path_.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) return {errno == ENOENT ? State::absent : State::unreadable, {}};
    Contents contents{State::read, {}};
    std::array<char, 16384> buffer{};
    while (true) {
        const auto count = ::read(file, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) contents = {State::unreadable, {}};
        if (count <= 0) break;
        contents.text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    close(file);
    return contents;
}

bool WholeFile::write(std::string_view text) const {
    const std::string path = target();
    const fs::path folder = fs::path(path).parent_path();
    if (!makeFolder(folder)) return false;
    const std::string newPath = fmt::format("{}.new.{}", path, getpid());
    if (writeNewFile(newPath, text) && rename(newPath.c_str(), path.c_str()) == 0) {
        flushFolder(folder);
        return true;
    }
    const int why = errno;
    unlink(newPath.c_str());
    errno = why;
    return false;
}

std::optional<std::string> WholeFile::setAside() const {
    const std::string path = target();
    std::string aside = path + ".damaged";
    std::error_code error;
    for (int number = 2; fs::exists(fs::symlink_status(aside, error)); ++number)
        aside = fmt::format("{}.damaged.{}", path, number);
    if (rename(path.c_str(), aside.c_str()) != 0) return std::nullopt;
    return aside;
}

std::string WholeFile::stamp() const {
    struct stat status {};
    if (stat(path_.c_str(), &status) != 0) return {};
#ifdef __APPLE__
    const timespec& time = status.st_mtimespec;
#else
    const timespec& time = status.st_mtim;
#endif
    return fmt::format("{} {} {} {}.{}", status.st_dev, status.st_ino, status.st_size, time.tv_sec,
                       time.tv_nsec);
}

void WholeFile::removeLeftovers() const {
    const fs::path path = target();
    const std::string start = path.filename().string() + ".new.";
    std::error_code error;
    for (const auto& file : fs::directory_iterator(path.parent_path(), error)) {
        const std::string name = file.path().filename().string();
        if (!name.starts_with(start)) continue;
        pid_t writer = 0;
        std::from_chars(name.data() + start.size(), name.data() + name.size(), writer);
        const bool isAlive = writer > 0 && (kill(writer, 0) == 0 || errno != ESRCH);
        if (!isAlive) unlink(file.path().c_str());
    }
}

} // namespace larkspan::qt
