#include "adapters/x11/applications/X11ApplicationControl.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <utility>

#include <unistd.h>

namespace larkspan::x11 {

namespace {

bool isAddress(std::string_view url) {
    return url.find(':') < url.find('/');
}

// Never signals ourselves or a process group.
bool signalProcesses(const std::set<ProcessId>& processes, int signal) {
    bool wasSent = false;
    for (const auto process : processes)
        if (process > 1 && process != getpid()) wasSent |= kill(process, signal) == 0;
    return wasSent;
}

} // namespace

X11ApplicationControl::X11ApplicationControl(ApplicationTable& table,
                                             const freedesktop::InstalledApplications& installed,
                                             const freedesktop::DefaultApplications& defaults,
                                             freedesktop::Launcher& launcher,
                                             WindowRequests& requests, const WindowMirror& mirror,
                                             std::function<void(const std::string&)> report)
    : table_(table)
    , installed_(installed)
    , defaults_(defaults)
    , launcher_(launcher)
    , requests_(requests)
    , mirror_(mirror)
    , report_(std::move(report))
    , fileManager_([this](const std::string& folder) { open(folder); }) {}

bool X11ApplicationControl::open(std::string_view url) {
    if (const auto entry = installed_.atPath(url)) return openApplication(*entry);
    const std::string target(url);
    const auto handler =
        isAddress(url) ? defaults_.forType("x-scheme-handler/" + target.substr(0, target.find(':')))
                       : defaults_.forFile(target);
    return handler && launch(*handler, {target});
}

bool X11ApplicationControl::openWith(const std::vector<std::string>& urls,
                                     std::string_view application) {
    const auto entry = installed_.atPath(application);
    return entry && launch(*entry, urls);
}

bool X11ApplicationControl::openNewInstance(std::string_view application) {
    const auto entry = installed_.atPath(application);
    if (!entry) return false;
    const auto newWindow =
        std::ranges::find(entry->actions, "new-window", &freedesktop::DesktopAction::id);
    return noteLaunch(*entry, newWindow == entry->actions.end()
                                  ? launcher_.launch(*entry)
                                  : launcher_.launchAction(*entry, *newWindow));
}

bool X11ApplicationControl::reveal(std::string_view url) {
    fileManager_.reveal(std::string(url));
    return true;
}

bool X11ApplicationControl::openApplication(const freedesktop::DesktopEntry& entry) {
    const auto* running = table_.findIdentifier(installed_.identifierOf(entry));
    if (running && !running->windows.empty()) return activate(running->number);
    return launch(entry, {});
}

bool X11ApplicationControl::launch(const freedesktop::DesktopEntry& entry,
                                   const std::vector<std::string>& files) {
    return noteLaunch(entry, launcher_.launch(entry, files));
}

bool X11ApplicationControl::noteLaunch(const freedesktop::DesktopEntry& entry,
                                       const freedesktop::Launcher::Result& result) {
    if (!result.pid) {
        if (report_) report_(result.failure);
        return false;
    }
    table_.noteLaunch(installed_.identifierOf(entry), result.pid);
    return true;
}

// The chosen main window; else the frontmost one on this desktop, then one on another desktop, then
// an iconified one.
ClientWindowRef X11ApplicationControl::windowToActivate(const RunningEntry& entry) const {
    const auto rank = [&](const ClientWindow& window) {
        if (window.id == entry.mainWindow) return 0;
        if (window.isMinimized) return 3;
        return window.isOnDesktop(mirror_.currentDesktop()) ? 1 : 2;
    };
    const auto best =
        std::min_element(entry.windows.begin(), entry.windows.end(),
                         [&](const auto& a, const auto& b) { return rank(*a) < rank(*b); });
    return best == entry.windows.end() ? nullptr : *best;
}

bool X11ApplicationControl::activate(ProcessId pid) {
    const auto* entry = table_.find(pid);
    const auto window = entry ? windowToActivate(*entry) : nullptr;
    if (!window) return false;
    for (const auto hidden : entry->iconified)
        if (hidden != window->id) requests_.restore(hidden);
    requests_.activate(window->id);
    // Valid only this time: from now on the frontmost window is the main one.
    table_.setMainWindow(pid, 0);
    table_.noteShowAsked(pid);
    return true;
}

bool X11ApplicationControl::hide(ProcessId pid) {
    const auto* entry = table_.find(pid);
    if (!entry || entry->windows.empty() || !mirror_.hasWindowManager()) return false;
    std::vector<WindowId> iconified;
    for (const auto& window : entry->windows)
        if (!window->isMinimized) iconified.push_back(window->id);
    for (const auto window : iconified)
        requests_.iconify(window);
    table_.noteHideAsked(pid, std::move(iconified));
    return true;
}

bool X11ApplicationControl::unhide(ProcessId pid) {
    const auto* entry = table_.find(pid);
    if (!entry) return false;
    // From back to front, to restore their stacking order.
    for (auto it = entry->iconified.rbegin(); it != entry->iconified.rend(); ++it)
        requests_.restore(*it);
    table_.noteShowAsked(pid);
    return true;
}

bool X11ApplicationControl::terminate(ProcessId pid) {
    const auto* entry = table_.find(pid);
    if (!entry) return false;
    if (entry->windows.empty()) return signalProcesses(entry->processes, SIGTERM);
    for (const auto& window : entry->windows)
        requests_.close(window->id);
    return true;
}

bool X11ApplicationControl::forceTerminate(ProcessId pid) {
    const auto* entry = table_.find(pid);
    if (!entry) return false;
    const bool wasSent = signalProcesses(entry->processes, SIGKILL);
    // Not every window states its process.
    for (const auto& window : entry->windows)
        requests_.kill(window->id);
    return wasSent || !entry->windows.empty();
}

bool X11ApplicationControl::sendSignal(ProcessId pid, int signal) {
    const auto* entry = table_.find(pid);
    return entry && signalProcesses(entry->processes, signal);
}

} // namespace larkspan::x11
