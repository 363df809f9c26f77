#include "adapters/sim/SimWindowServer.h"

#include "adapters/sim/world/DockProcess.h"

#include <algorithm>
#include <utility>

namespace larkspan::sim {

namespace {

constexpr int menuBarLayer = 24;
constexpr int dockLayer = 20;
constexpr int desktopPictureLayer = -2147483623;
/// The system's own windows have numbers in a separate range.
constexpr WindowId firstSystemWindow = 1'000'000;
constexpr ProcessId windowServerPid = 88;
/// Reading Spaces needs a connection first.
constexpr std::string_view connection = "CGSMainConnectionID";

WindowListEntry entryFor(const Window& window, bool isOnScreen, bool showsNames) {
    WindowListEntry entry{.layer = window.layer,
                          .ownerPID = window.pid,
                          .alpha = window.alpha,
                          .bounds = window.frame};
    if (window.hasNumber) entry.number = window.id;
    // The list has this field for windows on screen only.
    if (isOnScreen) entry.isOnScreen = true;
    if (window.hasName && showsNames) entry.name = window.title;
    return entry;
}

ManagedSpace managed(const Space& space) {
    return {.id64 = space.id, .type = space.type, .uuid = space.uuid};
}

ManagedDisplay managed(const Display& display, std::string identifier) {
    ManagedDisplay result{.displayIdentifier = std::move(identifier),
                          .currentSpace = managed(display.shown())};
    for (const Space& space : display.spaces)
        result.spaces.push_back(managed(space));
    return result;
}

} // namespace

WindowServerAbilities SimWindowServer::abilities() const {
    return {.announcesChanges = world_.announcesChanges, .readsAtOnce = world_.announcesChanges};
}

/// The menu bar and the Dock are above all apps.
void SimWindowServer::appendSystemWindows(std::vector<WindowListEntry>& list) const {
    WindowId number = firstSystemWindow;
    for (const Display& display : world_.displays) {
        const Rect& bounds = display.bounds;
        list.push_back({.layer = menuBarLayer,
                        .ownerPID = windowServerPid,
                        .alpha = 1.0,
                        .bounds = Rect{bounds.x, bounds.y, bounds.width, world_.menuBarHeight},
                        .number = number++,
                        .isOnScreen = true,
                        .name = "Menubar"});
    }
    const App* dock = world_.appOf(DockProcess::bundleIdentifier);
    if (!dock || world_.displays.empty()) return;
    list.push_back({.layer = dockLayer,
                    .ownerPID = dock->pid,
                    .alpha = 1.0,
                    .bounds = world_.displays.front().bounds,
                    .number = number,
                    .isOnScreen = true,
                    .name = "Dock"});
}

std::optional<std::vector<WindowListEntry>>
SimWindowServer::windowList(std::uint32_t option) const {
    world_.scheduler.spend(world_.windowListSeconds);
    if (!world_.windowListAnswers) return std::nullopt;
    return entries(option);
}

std::optional<std::vector<WindowId>> SimWindowServer::windowNumbers(std::uint32_t option) const {
    if (!world_.windowListAnswers || !world_.has("CGWindowListCreate")) return std::nullopt;
    std::vector<WindowId> numbers;
    for (const WindowListEntry& entry : entries(option))
        numbers.push_back(entry.number.value_or(0));
    return numbers;
}

std::vector<WindowListEntry> SimWindowServer::entries(std::uint32_t option) const {
    const bool onScreenOnly = (option & WindowListOption::onScreenOnly) != 0;
    std::vector<WindowListEntry> list;
    list.reserve(world_.windows.size() + 2 * world_.displays.size() + 1);
    appendSystemWindows(list);
    // Titles are visible only with the Screen Recording permission.
    for (const Window& window : world_.windows) {
        const bool isOnScreen = world_.isOnScreen(window);
        if (isOnScreen || !onScreenOnly)
            list.push_back(entryFor(window, isOnScreen, world_.mayRecordScreen));
    }
    if (option & WindowListOption::excludeDesktopElements) return list;
    WindowId number = 2 * firstSystemWindow;
    for (const Display& display : world_.displays) {
        list.push_back({.layer = desktopPictureLayer,
                        .ownerPID = windowServerPid,
                        .alpha = 1.0,
                        .bounds = display.bounds,
                        .number = number++,
                        .isOnScreen = true,
                        .name = "Desktop Picture"});
    }
    return list;
}

std::optional<std::vector<ManagedDisplay>> SimWindowServer::managedDisplaySpaces() const {
    if (!world_.has(connection) || !world_.has("CGSCopyManagedDisplaySpaces")) return std::nullopt;
    std::vector<ManagedDisplay> displays;
    for (const Display& display : world_.displays) {
        if (!world_.displaysHaveSeparateSpaces) return {{managed(display, "Main")}};
        displays.push_back(managed(display, display.identifier));
    }
    return displays;
}

std::optional<std::vector<WindowId>> SimWindowServer::windowsOfSpace(SpaceId space) const {
    if (!world_.has(connection) || !world_.has("SLSCopyWindowsWithOptionsAndTags"))
        return std::nullopt;
    std::vector<WindowId> ids;
    for (const Window& window : world_.windows) {
        if (window.minimized || window.space.value_or(space) != space) continue;
        const App* app = world_.app(window.pid);
        if (!app || !app->hidden) ids.push_back(window.id);
    }
    return ids;
}

bool SimWindowServer::moveWindows(const std::vector<WindowId>& windows, SpaceId space) {
    if (!world_.has(connection) || !world_.has("SLSMoveWindowsToManagedSpace")) return false;
    if (world_.movesWindows) {
        world_.scheduler.post([this, windows, space] {
            for (const WindowId window : windows)
                windows_.moveToSpace(window, space);
        });
    }
    return true;
}

Handle SimWindowServer::subscribe(std::function<void()> callback) {
    return world_.windowsChanged.subscribe(std::move(callback));
}

} // namespace larkspan::sim
