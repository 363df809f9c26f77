#include "adapters/sim/world/World.h"

#include "adapters/sim/world/DockProcess.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace larkspan::sim {

namespace {

template <typename Items, typename Matches>
auto* firstWhere(Items& items, Matches matches) {
    const auto found = std::find_if(items.begin(), items.end(), matches);
    return found == items.end() ? nullptr : &*found;
}

} // namespace

World::World() {
    dockPreferences["persistent-apps"] = PropertyValue::Array{};
}

App* World::app(ProcessId pid) {
    return firstWhere(apps, [pid](const App& app) { return app.pid == pid; });
}

const App* World::app(ProcessId pid) const {
    return firstWhere(apps, [pid](const App& app) { return app.pid == pid; });
}

App* World::appOf(std::string_view bundleIdentifier) {
    return firstWhere(apps,
                      [&](const App& app) { return app.bundleIdentifier == bundleIdentifier; });
}

Window* World::window(WindowId id) {
    return firstWhere(windows, [id](const Window& window) { return window.id == id; });
}

const Window* World::window(WindowId id) const {
    return firstWhere(windows, [id](const Window& window) { return window.id == id; });
}

Display* World::display(DisplayId id) {
    return firstWhere(displays, [id](const Display& display) { return display.id == id; });
}

Display* World::displayOfSpace(SpaceId space) {
    return firstWhere(displays, [space](const Display& display) {
        return std::any_of(display.spaces.begin(), display.spaces.end(),
                           [space](const Space& each) { return each.id == space; });
    });
}

Display& World::displayOf(const Window& window) {
    Display* best = &displays.front();
    double bestArea = 0;
    for (Display& display : displays) {
        const double area = intersection(display.bounds, window.frame).area();
        if (area > bestArea) {
            bestArea = area;
            best = &display;
        }
    }
    return *best;
}

SpaceId World::shownSpace(const Display& display) const {
    return displaysHaveSeparateSpaces ? display.shown().id : displays.front().shown().id;
}

bool World::isSpaceShown(SpaceId space) const {
    return std::any_of(displays.begin(), displays.end(),
                       [&](const Display& display) { return shownSpace(display) == space; });
}

bool World::isOnScreen(const Window& window) const {
    const App* owner = app(window.pid);
    if ((owner && owner->hidden) || window.minimized || displays.empty()) return false;
    return !window.space || isSpaceShown(*window.space);
}

RunningApplication World::snapshot(const App& app) const {
    return {.pid = app.pid,
            .bundleIdentifier = app.bundleIdentifier,
            .bundleURL = app.path,
            .localizedName = app.name,
            .activationPolicy = app.policy,
            .isFinishedLaunching = app.finishedLaunching,
            .isHidden = app.hidden,
            .isActive = app.pid == reportedFrontmost,
            .isTerminated = this->app(app.pid) == nullptr,
            .icon = app.icon};
}

double World::stripHeight() const {
    const bool isRunning = std::any_of(apps.begin(), apps.end(), [](const App& app) {
        return app.bundleIdentifier == DockProcess::bundleIdentifier;
    });
    if (!isRunning || dock.autoHide || dock.place.orientation != 2) return 0;
    const double pixels = std::max(1.0, std::floor(16 + static_cast<double>(dock.tileSize) * 112));
    return pixels + (pixels >= 48 ? 26 : 20) + stripSurplus;
}

std::vector<Screen> World::screens() const {
    std::vector<Screen> screens;
    for (const Display& display : displays) {
        const Rect& bounds = display.bounds;
        const double mainHeight = displays.front().bounds.height;
        const Rect frame{bounds.x, mainHeight - bounds.maxY(), bounds.width, bounds.height};
        // Only the display with the Dock has a strip for it.
        const double strip = screens.empty() ? stripHeight() : 0;
        const Rect visible{frame.x, frame.y + strip, frame.width,
                           frame.height - strip - menuBarHeight};
        screens.push_back({display.id, display.identifier, frame, visible, bounds, display.scale});
    }
    return screens;
}

void World::send(std::function<void()> notification) {
    if (events.areLost) return;
    deliver(notification);
    if (events.areDoubled) deliver(std::move(notification));
}

void World::deliver(std::function<void()> notification) {
    if (events.lateSeconds <= 0) {
        scheduler.post(std::move(notification));
        return;
    }
    const auto place = lateNotifications_.emplace(lateNotifications_.end());
    *place =
        scheduler.after(events.lateSeconds, [this, place, notification = std::move(notification)] {
            lateNotifications_.erase(place);
            notification();
        });
}

void World::announce(WorkspaceEvent::Kind kind, const App& app) {
    send([this, event = WorkspaceEvent{kind, snapshot(app)}] { workspaceEvents.emit(event); });
}

void World::announce(WorkspaceEvent::Kind kind) {
    send([this, kind] { workspaceEvents.emit({kind, std::nullopt}); });
}

void World::announce(InputEventType input, std::uint64_t modifierFlags) {
    send([this, event = InputEvent{input, modifierFlags, pointer}] { inputEvents.emit(event); });
}

void World::windowsDidChange() {
    windowsTouched.emit();
    if (!announcesChanges || windowsChangeIsPosted_) return;
    windowsChangeIsPosted_ = !events.areLost;
    send([this] {
        windowsChangeIsPosted_ = false;
        windowsChanged.emit();
    });
}

void World::noticesDidChange() {
    if (announcesChanges) send([this] { noticesChanged.emit(); });
}

void World::screensMayHaveChanged() {
    auto now = screens();
    if (now == lastScreens_) return;
    lastScreens_ = std::move(now);
    send([this] { screensChanged.emit(); });
}

} // namespace larkspan::sim
