#include "adapters/freedesktop/entries/LoginEntry.h"

#include "adapters/freedesktop/entries/AutostartEntries.h"
#include "adapters/freedesktop/entries/KeyFile.h"
#include "adapters/qt/WholeFile.h"

#include <fmt/format.h>

#include <unistd.h>
#include <utility>

namespace larkspan::freedesktop {

namespace {

/// The path as an argument of an `Exec` line.
std::string quotedForExec(const std::string& path) {
    std::string result = "\"";
    for (const char character : path) {
        // Escaped for the quotes, and the backslash once more for the file.
        if (std::string_view("\"`$\\").find(character) != std::string_view::npos) result += "\\\\";
        if (character == '\\') result += '\\';
        if (character == '%') result += '%';
        result += character;
    }
    return result + "\"";
}

} // namespace

LoginEntry::LoginEntry(const Environment& environment, std::string program,
                       std::function<void(const std::string&)> open)
    : folder_(XdgFolders(environment).configHome + "/autostart")
    , path_(folder_ + "/larkspan.desktop")
    , program_(std::move(program))
    , open_(std::move(open)) {}

LoginItem::Status LoginEntry::status() const {
    return isStartedAtLogin(readText(path_)) ? Status::enabled : Status::notRegistered;
}

bool LoginEntry::registerItem() {
    return qt::WholeFile(path_).write(fmt::format("[Desktop Entry]\n"
                                                  "Type=Application\n"
                                                  "Name=Larkspan\n"
                                                  "Comment=A bar along the bottom of every screen\n"
                                                  "Icon=larkspan\n"
                                                  "Exec={}\n",
                                                  quotedForExec(program_)));
}

bool LoginEntry::unregisterItem() {
    return unlink(path_.c_str()) == 0;
}

void LoginEntry::openSystemSettings() {
    open_(folder_);
}

} // namespace larkspan::freedesktop
