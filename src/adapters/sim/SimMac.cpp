#include "adapters/sim/SimMac.h"

#include <algorithm>
#include <utility>

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
            .loginItems = loginItems,
            .application = application,
            .trash = trash,
            .eventTaps = eventTaps,
            .eventMonitors = eventMonitors_,
            .displayLink = displayLink,
            .systemLog = systemLog,
            .notices = notices_};
}

void SimMac::unplug(DisplayId display) {
    displays_.unplug(display);
    applications_.settleFrontmost();
}

void SimMac::unplugAll() {
    while (!world_.displays.empty())
        displays_.unplug(world_.displays.back().id);
    applications_.settleFrontmost();
}

void SimMac::mirror(DisplayId display) {
    displays_.mirror(display);
    applications_.settleFrontmost();
}

bool SimMac::switchSpace(DisplayId display, std::size_t index) {
    if (!displays_.switchSpace(display, index)) return false;
    applications_.settleFrontmost();
    return true;
}

void SimMac::moveSpace(DisplayId id, int step) {
    const Display* display = world_.display(id);
    if (!display || (step < 0 && display->current == 0)) return;
    const auto index = static_cast<std::ptrdiff_t>(display->current) + step;
    switchSpace(id, static_cast<std::size_t>(index));
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

void SimMac::setBadge(ProcessId pid, std::string text) {
    App* app = world_.app(pid);
    if (!app) return;
    app->badge = std::move(text);
    world_.noticesDidChange();
}

void SimMac::kill(ProcessId pid) {
    if (dock_.owns(pid))
        dock_.restart();
    else
        applications_.kill(pid);
}

void SimMac::openWindows(ProcessId pid, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        openWindow(pid, {.frame = Rect{100, 100, 760, 480}, .title = std::to_string(i + 1)});
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

void SimMac::movePointer(Point place) {
    world_.pointer = place;
    world_.announce(InputEventType::mouseMoved);
}

void SimMac::click(Point place) {
    movePointer(place);
    world_.announce(InputEventType::leftMouseDown);
    world_.announce(InputEventType::leftMouseUp);
}

void SimMac::pressKey(std::uint64_t modifierFlags) {
    world_.announce(InputEventType::keyDown, modifierFlags);
}

void SimMac::setDock(const DockSettings& settings) {
    world_.dock = settings;
    world_.screensMayHaveChanged();
}

void SimMac::setTrash(std::optional<std::size_t> entries) {
    world_.trashEntries = entries;
    scheduler.post([this] { world_.trashChanged.emit(); });
}

void SimMac::freezeScreenRecording() {
    screenCapture.preflightAccess();
    world_.freezesScreenRecording = true;
}

bool SimMac::removeFunction(std::string_view name) {
    if (std::ranges::find(privateFunctions, name) == privateFunctions.end()) return false;
    world_.missingFunctions.emplace(name);
    return true;
}

void SimMac::removeAllFunctions() {
    world_.missingFunctions.insert(privateFunctions.begin(), privateFunctions.end());
}

void SimMac::hang(ProcessId pid, bool hung) {
    if (App* app = world_.app(pid)) app->hung = hung;
}

void SimMac::answerAfter(ProcessId pid, double seconds) {
    if (App* app = world_.app(pid)) app->answerSeconds = seconds;
}

void SimMac::lieAboutFrames(ProcessId pid, Point by) {
    if (App* app = world_.app(pid)) app->frameError = by;
}

void SimMac::dieDuringRead(ProcessId pid, int calls) {
    if (App* app = world_.app(pid)) app->callsUntilDeath = calls;
}

void SimMac::restartDock(double seconds) {
    world_.dockRestartSeconds = seconds;
    dock_.restart();
}

void SimMac::removeDock() {
    world_.dockRestartSeconds.reset();
    dock_.restart();
}

void SimMac::startDock() {
    world_.dockRestartSeconds = 0.5;
    dock_.start();
}

bool SimMac::changeDisplaysAfterRead(std::string_view displays) {
    if (!displays_.isReadable(displays)) return false;
    world_.displaysAfterRead = displays;
    return true;
}

void SimMac::programKilled(std::size_t survivors) {
    world_.killPoint.revive();
    defaults.loseUnsynchronized(survivors);
    dockPreferences_.loseUnsynchronized();
    programEnded();
}

} // namespace larkspan::sim
