#include "adapters/sim/world/Applications.h"

#include "adapters/sim/world/DrawnIcon.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace larkspan::sim {

using EventKind = WorkspaceEvent::Kind;

InstalledApp& Applications::install(std::string bundleIdentifier, std::string name) {
    InstalledApp app{.bundleIdentifier = bundleIdentifier,
                     .name = name,
                     .path = fmt::format("/Applications/{}.app", name),
                     .icon = std::make_shared<DrawnIcon>(bundleIdentifier)};
    announceInstalled();
    return world_.installed[std::move(bundleIdentifier)] = std::move(app);
}

void Applications::uninstall(std::string_view bundleIdentifier) {
    const auto found = world_.installed.find(bundleIdentifier);
    if (found == world_.installed.end()) return;
    world_.installed.erase(found);
    announceInstalled();
}

void Applications::announceInstalled() {
    // A Mac sends no notification for it.
    if (world_.announcesChanges) world_.announce(EventKind::runningApplicationsDidChange);
}

ProcessId Applications::launch(std::string_view bundleIdentifier, const LaunchOptions& options) {
    const auto found = world_.installed.find(bundleIdentifier);
    const InstalledApp& bundle =
        found != world_.installed.end()
            ? found->second
            : install(std::string(bundleIdentifier),
                      std::string(bundleIdentifier.substr(bundleIdentifier.rfind('.') + 1)));
    App app{.pid = ++lastPid_,
            .name = bundle.name,
            .icon = bundle.icon,
            .policy = options.policy,
            .finishedLaunching = false};
    if (options.hasBundle) {
        app.bundleIdentifier = bundle.bundleIdentifier;
        app.path = bundle.path;
    }
    const ProcessId pid = app.pid;
    world_.apps.push_back(std::move(app));
    world_.announce(EventKind::runningApplicationsDidChange);
    if (options.launchSeconds > 0) {
        launches_[pid] = world_.scheduler.after(
            options.launchSeconds, [this, pid, options] { finishLaunching(pid, options); });
    } else {
        finishLaunching(pid, options);
    }
    return pid;
}

void Applications::finishLaunching(ProcessId pid, const LaunchOptions& options) {
    App* app = world_.app(pid);
    if (!app) return;
    app->finishedLaunching = true;
    world_.announce(EventKind::didLaunchApplication, *app);
    if (!options.inBackground && options.policy == ActivationPolicy::regular) activate(pid);
    if (options.opensWindow) windows_.open(pid, {.title = app->name});
}

bool Applications::open(std::string_view path) {
    world_.opened.emplace_back(path);
    if (world_.privacy.open(path)) return true;
    const InstalledApp* bundle = installedAt(path);
    if (!bundle) {
        // A folder opens in the Finder; URLs are only recorded.
        if (path.starts_with('/')) openFolder(path);
        return true;
    }
    if (App* running = world_.appOf(bundle->bundleIdentifier))
        bringBack(*running);
    else
        launchUsually(*bundle, bundle->opensWindow);
    return true;
}

bool Applications::openWith(const std::vector<std::string>& files, std::string_view application) {
    const InstalledApp* bundle = installedAt(application);
    if (!bundle) return false;
    App* running = world_.appOf(bundle->bundleIdentifier);
    const ProcessId pid = running ? running->pid : launchUsually(*bundle, false);
    for (const auto& file : files) {
        world_.opened.push_back(file);
        windows_.open(pid, {.title = file.substr(file.rfind('/') + 1)});
    }
    activate(pid);
    return true;
}

bool Applications::openNewInstance(std::string_view application) {
    const InstalledApp* bundle = installedAt(application);
    if (bundle) launchUsually(*bundle, bundle->opensWindow);
    return bundle != nullptr;
}

bool Applications::reveal(std::string_view path) {
    world_.revealed.emplace_back(path);
    return openFolder(path.substr(0, path.rfind('/')));
}

bool Applications::openFolder(std::string_view path) {
    const App* finder = world_.appOf(finderIdentifier);
    if (!finder) return false;
    const ProcessId pid = finder->pid;
    activate(pid);
    windows_.open(pid, {.title = std::string(path.substr(path.rfind('/') + 1))});
    return true;
}

const InstalledApp* Applications::installedAt(std::string_view path) const {
    const auto found =
        std::find_if(world_.installed.begin(), world_.installed.end(),
                     [path](const auto& entry) { return entry.second.path == path; });
    return found == world_.installed.end() ? nullptr : &found->second;
}

ProcessId Applications::launchUsually(const InstalledApp& bundle, bool opensWindow) {
    return launch(bundle.bundleIdentifier, {.launchSeconds = bundle.launchSeconds,
                                            .opensWindow = opensWindow,
                                            .policy = bundle.policy});
}

void Applications::bringBack(App& app) {
    // An app that is still launching comes forward when it has finished.
    if (!app.finishedLaunching) return;
    const ProcessId pid = app.pid;
    activate(pid);
    const auto isOwn = [pid](const Window& window) { return window.pid == pid; };
    const auto isVisible = [&](const Window& window) { return isOwn(window) && !window.minimized; };
    auto& windows = world_.windows;
    if (std::any_of(windows.begin(), windows.end(), isVisible)) return;
    const auto minimized = std::find_if(windows.begin(), windows.end(), isOwn);
    if (minimized != windows.end()) {
        windows_.setMinimized(minimized->id, false);
        return;
    }
    const auto bundle = world_.installed.find(app.bundleIdentifier.value_or(""));
    if (bundle != world_.installed.end() && bundle->second.opensWindow)
        windows_.open(pid, {.title = app.name});
}

void Applications::setFrontmost(ProcessId pid) {
    if (world_.frontmost == pid) return;
    world_.frontmost = pid;
    App* app = world_.app(pid);
    if (app && std::exchange(app->attention, std::nullopt)) world_.noticesDidChange();
    if (world_.frontReportSeconds > 0)
        frontReport_ = world_.scheduler.after(world_.frontReportSeconds, [this] { reportFront(); });
    else
        reportFront();
}

void Applications::reportFront() {
    frontReport_.reset();
    world_.reportedFrontmost = world_.frontmost;
    if (const App* app = world_.app(world_.frontmost))
        world_.announce(EventKind::didActivateApplication, *app);
}

void Applications::activate(ProcessId pid) {
    if (!world_.app(pid)) return;
    unhide(pid);
    windows_.raiseAll(pid);
    setFrontmost(pid);
    // If all windows of the app are on other Spaces, the frontmost one's Space is shown.
    if (windows_.front(pid)) return;
    const auto elsewhere =
        std::find_if(world_.windows.begin(), world_.windows.end(), [pid](const Window& window) {
            return window.pid == pid && !window.minimized && window.space;
        });
    if (elsewhere != world_.windows.end()) displays_.showSpace(*elsewhere->space);
}

void Applications::hide(ProcessId pid) {
    App* app = world_.app(pid);
    if (!app || app->hidden) return;
    app->hidden = true;
    world_.announce(EventKind::didHideApplication, *app);
    world_.windowsDidChange();
    if (world_.frontmost == pid) settleFrontmost();
}

void Applications::unhide(ProcessId pid) {
    App* app = world_.app(pid);
    if (!app || !app->hidden) return;
    app->hidden = false;
    world_.announce(EventKind::didUnhideApplication, *app);
    world_.windowsDidChange();
}

bool Applications::quit(ProcessId pid) {
    const App* app = world_.app(pid);
    if (!app || app->refusesToQuit || app->hung) return false;
    kill(pid);
    return true;
}

void Applications::requestAttention(ProcessId pid, bool isCritical) {
    App* app = world_.app(pid);
    if (!app || pid == world_.frontmost) return;
    app->attention = AttentionRequest{isCritical, world_.scheduler.uptime()};
    world_.noticesDidChange();
}

void Applications::kill(ProcessId pid) {
    const auto found = std::find_if(world_.apps.begin(), world_.apps.end(),
                                    [pid](const App& app) { return app.pid == pid; });
    if (found == world_.apps.end()) return;
    const App gone = std::move(*found);
    world_.apps.erase(found);
    launches_.erase(pid);
    if (!gone.leavesWindows) windows_.closeAll(pid);
    world_.announce(EventKind::didTerminateApplication, gone);
    world_.announce(EventKind::runningApplicationsDidChange);
    if (world_.frontmost == pid) settleFrontmost();
}

void Applications::settleFrontmost() {
    const App* front = world_.app(world_.frontmost);
    if (front && !front->hidden && windows_.front(front->pid)) return;
    if (const ProcessId owner = windows_.frontmostOwner()) {
        setFrontmost(owner);
        return;
    }
    // Nothing is on screen: an app without windows keeps the menu bar; otherwise the Finder gets
    // it.
    if (front && !front->hidden) return;
    const App* finder = world_.appOf(finderIdentifier);
    setFrontmost(finder ? finder->pid : 0);
}

} // namespace larkspan::sim
