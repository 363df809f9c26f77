#include "adapters/x11/applications/X11Workspace.h"

#include "adapters/x11/windows/WindowIcon.h"

#include <algorithm>
#include <filesystem>

namespace larkspan::x11 {

namespace {

using Kind = WorkspaceEvent::Kind;

const RunningApplication* findIn(const std::vector<RunningApplication>& list, ProcessId pid) {
    const auto found = std::find_if(
        list.begin(), list.end(), [&](const auto& application) { return application.pid == pid; });
    return found == list.end() ? nullptr : &*found;
}

// An application becomes regular with its first ordinary window, and stops being regular with its
// last one. That also changes the list of regular applications.
bool isSameList(const std::vector<RunningApplication>& a,
                const std::vector<RunningApplication>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& x, const auto& y) {
        return x.pid == y.pid && x.activationPolicy == y.activationPolicy;
    });
}

bool isAccessory(const RunningEntry& entry) {
    return !entry.windows.empty() &&
           std::all_of(entry.windows.begin(), entry.windows.end(), [](const auto& window) {
               return window->kind == ClientWindow::Kind::floating;
           });
}

// Without a class, the main window's title is used, which its dialogs do not change.
std::string nameWithoutEntry(const RunningEntry& entry) {
    if (!entry.className.empty()) return entry.className;
    const auto main =
        std::find_if(entry.windows.begin(), entry.windows.end(), [](const auto& window) {
            return window->kind == ClientWindow::Kind::normal && !window->title.empty();
        });
    return main == entry.windows.end() ? "Unknown" : (*main)->title;
}

} // namespace

X11Workspace::X11Workspace(X11Connection& connection, const WindowMirror& mirror,
                           const ApplicationTable& table,
                           const freedesktop::InstalledApplications& installed,
                           const freedesktop::IconTheme& icons)
    : connection_(connection)
    , mirror_(mirror)
    , table_(table)
    , installed_(installed)
    , icons_(icons) {}

std::optional<RunningApplication> X11Workspace::frontmostApplication() const {
    const auto found = std::find_if(running_.begin(), running_.end(),
                                    [](const auto& application) { return application.isActive; });
    return found == running_.end() ? std::nullopt : std::optional(*found);
}

std::optional<std::string>
X11Workspace::urlForApplication(std::string_view bundleIdentifier) const {
    const auto entry = installed_.find(bundleIdentifier);
    return entry ? std::optional(entry->path) : std::nullopt;
}

std::string X11Workspace::displayName(std::string_view url) const {
    const auto entry = installed_.atPath(url);
    return entry ? entry->name : std::filesystem::path(url).filename().string();
}

ImageRef X11Workspace::icon(std::string_view url) const {
    const auto entry = installed_.atPath(url);
    if (!entry) return std::filesystem::is_directory(url) ? icons_.icon("folder") : nullptr;
    if (auto image = icons_.icon(entry->icon)) return image;
    const auto* running = table_.findIdentifier(installed_.identifierOf(*entry));
    return running ? windowIcon(*running) : nullptr;
}

ImageRef X11Workspace::windowIcon(const RunningEntry& entry) const {
    auto& icon = windowIcons_[entry.number];
    if (icon) return icon;
    for (const auto& window : entry.windows)
        if (window->hasIcon) return icon = std::make_shared<WindowIcon>(connection_, window->id);
    return nullptr;
}

RunningApplication X11Workspace::applicationOf(const RunningEntry& entry, ProcessId active) const {
    RunningApplication application;
    application.pid = entry.number;
    application.bundleIdentifier = entry.bundleIdentifier;
    const auto installed =
        entry.bundleIdentifier ? installed_.find(*entry.bundleIdentifier) : nullptr;
    if (installed) {
        application.bundleURL = installed->path;
        application.localizedName = installed->name;
    } else {
        application.localizedName = nameWithoutEntry(entry);
        application.icon = windowIcon(entry);
    }
    if (isAccessory(entry)) application.activationPolicy = ActivationPolicy::accessory;
    application.isFinishedLaunching = !entry.isLaunching;
    application.isHidden = entry.isHidden();
    application.isActive = entry.number == active;
    return application;
}

void X11Workspace::update() {
    ProcessId active = 0;
    const auto& windows = mirror_.windows();
    const auto found = std::find_if(windows.begin(), windows.end(), [&](const auto& window) {
        return window->id == mirror_.activeWindow();
    });
    if (found != windows.end()) active = (*found)->owner;

    const auto before = std::move(running_);
    running_.clear();
    for (const auto* entry : table_.applications())
        running_.push_back(applicationOf(*entry, active));
    std::erase_if(windowIcons_, [&](const auto& icon) { return !table_.find(icon.first); });
    const bool isOtherDesktop = mirror_.currentDesktop() != desktop_;
    desktop_ = mirror_.currentDesktop();
    announce(before, isOtherDesktop);
}

void X11Workspace::announceEntries() {
    events_.emit({WorkspaceEvent::Kind::runningApplicationsDidChange, std::nullopt});
}

// On a copy: a subscriber may cause another change of the list.
void X11Workspace::announce(const std::vector<RunningApplication>& before, bool isOtherDesktop) {
    const auto now = running_;
    std::vector<WorkspaceEvent> happened;
    for (auto gone : before) {
        if (findIn(now, gone.pid)) continue;
        gone.isTerminated = true;
        happened.push_back({Kind::didTerminateApplication, gone});
    }
    for (const auto& application : now) {
        const auto* old = findIn(before, application.pid);
        const bool wasLaunched = old && old->isFinishedLaunching;
        if (application.isFinishedLaunching && !wasLaunched)
            happened.push_back({Kind::didLaunchApplication, application});
        if (application.isHidden != (old && old->isHidden))
            happened.push_back(
                {application.isHidden ? Kind::didHideApplication : Kind::didUnhideApplication,
                 application});
        if (application.isActive && !(old && old->isActive))
            happened.push_back({Kind::didActivateApplication, application});
    }
    if (isOtherDesktop) happened.push_back({Kind::activeSpaceDidChange, std::nullopt});
    if (!isSameList(before, now))
        happened.push_back({Kind::runningApplicationsDidChange, std::nullopt});
    for (const auto& event : happened)
        events_.emit(event);
}

} // namespace larkspan::x11
