#include "platform/sim/SimMac.h"

namespace larkspan::sim {

SimMac::SimMac(std::string_view displays) {
    displays_.set(displays);
    applications_.install(DockProcess::bundleIdentifier, "Dock").path =
        "/System/Library/CoreServices/Dock.app";
    applications_.install(finderIdentifier, "Finder").path =
        "/System/Library/CoreServices/Finder.app";
    dock_.start();
    applications_.launch(finderIdentifier, {});
    scheduler.runUntilIdle();
}

Platform SimMac::platform() {
    return {.scheduler = scheduler,
            .defaults = defaults,
            .workspace = workspace_,
            .applications = control_,
            .screens = screens_,
            .dockStrip = strip_,
            .windowServer = windowServer_,
            .accessibility = accessibility,
            .screenCapture = screenCapture,
            .coreDock = coreDock,
            .dockPreferences = dockPreferences_,
            .statusBar = statusBar,
            .loginItem = loginItem,
            .application = application,
            .trash = trash,
            .eventTaps = eventTaps,
            .displayLink = displayLink,
            .systemLog = systemLog};
}

void SimMac::unplug(DisplayId display) {
    displays_.unplug(display);
    applications_.settleFrontmost();
}

bool SimMac::switchSpace(DisplayId display, std::size_t index) {
    if (!displays_.switchSpace(display, index)) return false;
    applications_.settleFrontmost();
    return true;
}

void SimMac::removeSpace(SpaceId space) {
    displays_.removeSpace(space);
    applications_.settleFrontmost();
}

DisplayId SimMac::displayAt(std::size_t index) const {
    return index < world_.displays.size() ? world_.displays[index].id : 0;
}

SpaceId SimMac::spaceAt(DisplayId id, std::size_t index) const {
    for (const Display& display : world_.displays) {
        if (display.id == id && index < display.spaces.size()) return display.spaces[index].id;
    }
    return 0;
}

ProcessId SimMac::pidOf(std::string_view bundleIdentifier) {
    const App* app = world_.appOf(bundleIdentifier);
    return app ? app->pid : 0;
}

void SimMac::leaveFullScreen(WindowId window) {
    windows_.leaveFullScreen(window);
    applications_.settleFrontmost();
}

void SimMac::focusWindow(WindowId id) {
    const Window* window = world_.window(id);
    if (!window) return;
    const ProcessId pid = window->pid;
    windows_.setMinimized(id, false);
    windows_.raise(id);
    applications_.focus(pid);
}

void SimMac::setDock(const DockSettings& settings) {
    world_.dock = settings;
    world_.screensMayHaveChanged();
}

void SimMac::setTrash(std::optional<std::size_t> entries) {
    world_.trashEntries = entries;
    scheduler.post([this] { world_.trashChanged.emit(); });
}

void SimMac::hang(ProcessId pid, bool hung) {
    if (App* app = world_.app(pid)) app->hung = hung;
}

} // namespace larkspan::sim
