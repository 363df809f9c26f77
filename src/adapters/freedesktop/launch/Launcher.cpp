#include "adapters/freedesktop/launch/Launcher.h"

#include "adapters/freedesktop/entries/ExecLine.h"

#include <fmt/format.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

namespace larkspan::freedesktop {

namespace {

/// The option after which a terminal takes a command and its arguments. Most use xterm's.
std::string commandOption(const std::string& terminal) {
    struct Option {
        std::string_view program;
        const char* option;
    };
    constexpr std::array others = {Option{"gnome-terminal", "--"}, Option{"kgx", "--"},
                                   Option{"ptyxis", "--"}, Option{"xfce4-terminal", "-x"}};
    const std::string name = std::filesystem::path(terminal).filename().string();
    for (const auto& other : others) {
        if (other.program == name) return other.option;
    }
    return "-e";
}

} // namespace

Launcher::Launcher(const Environment& environment, const DefaultApplications& defaults)
    : environment_(environment)
    , defaults_(defaults) {}

Launcher::Result Launcher::launch(const DesktopEntry& entry, const std::vector<std::string>& files,
                                  const std::string& startupId) {
    return startAll(entry, entry.exec, files, startupId);
}

Launcher::Result Launcher::launchAction(const DesktopEntry& entry, const DesktopAction& action) {
    return startAll(entry, action.exec, {}, {});
}

Launcher::Result Launcher::startAll(const DesktopEntry& entry, std::string_view exec,
                                    const std::vector<std::string>& files,
                                    const std::string& startupId) {
    const auto lines = commandLines(entry, exec, files);
    if (lines.empty())
        return {.failure = fmt::format("{}: its Exec line has no program", entry.path)};
    Result first;
    for (const auto& line : lines) {
        Result result = start(line, entry, startupId);
        if (!first.pid) first = std::move(result);
    }
    return first;
}

Launcher::Result Launcher::start(std::vector<std::string> arguments, const DesktopEntry& entry,
                                 const std::string& startupId) {
    if (entry.isTerminal && !wrapInTerminal(arguments))
        return {.failure = fmt::format("{} needs a terminal, but none is installed", entry.name)};
    const std::string path = environment_.findProgram(arguments.front());
    if (path.empty())
        return {.failure =
                    fmt::format("{}: there is no program {}", entry.name, arguments.front())};
    const ProcessId pid = children_.start({.path = path,
                                           .arguments = std::move(arguments),
                                           .environment = childEnvironment(startupId),
                                           .workingFolder = entry.workingFolder});
    if (pid > 0) return {.pid = pid};
    return {.failure = fmt::format("cannot start {}: {}", entry.name, strerror(errno))};
}

bool Launcher::wrapInTerminal(std::vector<std::string>& arguments) const {
    std::vector<std::string> wrapped;
    if (const auto terminal = defaults_.terminal()) {
        const auto lines = commandLines(*terminal, terminal->exec, {});
        if (!lines.empty()) wrapped = {lines.front().front()};
    }
    if (wrapped.empty() || environment_.findProgram(wrapped.front()).empty())
        wrapped = {"x-terminal-emulator"};
    if (environment_.findProgram(wrapped.front()).empty()) return false;
    wrapped.push_back(commandOption(wrapped.front()));
    arguments.insert(arguments.begin(), wrapped.begin(), wrapped.end());
    return true;
}

std::vector<std::string> Launcher::childEnvironment(const std::string& startupId) const {
    std::vector<std::string> result;
    for (const auto& [name, value] : environment_.variables()) {
        // An identifier that we were started with belongs to our own start.
        if (name != "DESKTOP_STARTUP_ID") result.push_back(name + "=" + value);
    }
    if (!startupId.empty()) result.push_back("DESKTOP_STARTUP_ID=" + startupId);
    return result;
}

} // namespace larkspan::freedesktop
