#include "adapters/sim/world/Windows.h"

#include <algorithm>
#include <utility>

namespace larkspan::sim {

Rect Windows::usualFrame(const App& app, const Display& display) const {
    Size size{760, 480};
    if (app.bundleIdentifier) {
        const auto found = world_.installed.find(*app.bundleIdentifier);
        if (found != world_.installed.end()) size = found->second.windowSize;
    }
    const double room = display.bounds.height - world_.menuBarHeight;
    size.width = std::min(size.width, display.bounds.width);
    size.height = std::min(size.height, room);
    // Each new window is a little further down and to the right, starting again before it would
    // leave the display.
    const double step = 28 * static_cast<double>(world_.windows.size() % 8);
    const double x = std::min(display.bounds.width / 10 + step, display.bounds.width - size.width);
    const double y = std::min(room / 12 + step, room - size.height);
    return {display.bounds.x + x, display.bounds.y + world_.menuBarHeight + y, size.width,
            size.height};
}

WindowId Windows::open(ProcessId pid, const WindowOptions& options) {
    const App* app = world_.app(pid);
    if (!app || world_.displays.empty()) return 0;
    Display* display = nullptr;
    if (options.display)
        display = world_.display(*options.display);
    else if (options.space)
        display = world_.displayOfSpace(*options.space);
    else if (!options.frame)
        display = &world_.displays.front();

    Window window{.id = ++lastWindow_, .pid = pid};
    if (options.frame) window.frame = *options.frame;
    if (!display) display = &world_.displayOf(window);
    if (!options.frame) window.frame = usualFrame(*app, *display);
    window.title = options.title;
    window.subrole = options.subrole;
    window.layer = options.layer;
    window.alpha = options.alpha;
    window.hasNumber = options.hasNumber;
    window.hasName = options.hasName;
    if (!options.everySpace)
        window.space = options.space ? *options.space : world_.shownSpace(*display);

    // In front of everything if its app is frontmost; else in front of its app's windows, or of all
    // but the frontmost app's.
    auto place = world_.windows.begin();
    if (pid != world_.frontmost) {
        place = std::find_if(place, world_.windows.end(), [this, pid](const Window& other) {
            return other.pid == pid || other.pid != world_.frontmost;
        });
    }
    world_.windows.insert(place, std::move(window));
    world_.windowsDidChange();
    return lastWindow_;
}

void Windows::close(WindowId id) {
    const Window* window = world_.window(id);
    if (!window) return;
    if (window->frameBeforeFullScreen) leaveFullScreen(id);
    std::erase_if(world_.windows, [id](const Window& each) { return each.id == id; });
    world_.windowsDidChange();
}

void Windows::closeAll(ProcessId pid) {
    std::vector<WindowId> ids;
    for (const Window& window : world_.windows) {
        if (window.pid == pid) ids.push_back(window.id);
    }
    for (const WindowId id : ids)
        close(id);
}

void Windows::setFrame(WindowId id, const Rect& frame) {
    Window* window = world_.window(id);
    if (!window || window->frame == frame || world_.displays.empty()) return;
    const Display* before = &world_.displayOf(*window);
    window->frame = frame;
    const Display& after = world_.displayOf(*window);
    if (window->space && before != &after) window->space = world_.shownSpace(after);
    world_.windowsDidChange();
}

void Windows::moveToDisplay(WindowId id, DisplayId displayId) {
    Window* window = world_.window(id);
    const Display* display = world_.display(displayId);
    if (!window || !display) return;
    const Rect from = world_.displayOf(*window).bounds;
    Rect frame = window->frame;
    frame.x += display->bounds.x - from.x;
    frame.y += display->bounds.y - from.y;
    setFrame(id, frame);
}

void Windows::moveToSpace(WindowId id, SpaceId space) {
    Window* window = world_.window(id);
    const Display* to = world_.displayOfSpace(space);
    if (!window || !to) return;
    const Rect from = world_.displayOf(*window).bounds;
    window->frame.x += to->bounds.x - from.x;
    window->frame.y += to->bounds.y - from.y;
    window->space = space;
    world_.windowsDidChange();
}

void Windows::setTitle(WindowId id, std::string title) {
    if (Window* window = world_.window(id)) window->title = std::move(title);
    world_.windowsDidChange();
}

void Windows::setMinimized(WindowId id, bool minimized) {
    Window* window = world_.window(id);
    if (!window || window->minimized == minimized || world_.displays.empty()) return;
    // A full-screen window has no button to minimise it.
    if (minimized && window->frameBeforeFullScreen) return;
    window->minimized = minimized;
    if (!minimized) {
        // It returns to the shown Space, in front of the others.
        if (window->space) window->space = world_.shownSpace(world_.displayOf(*window));
        raise(id);
    }
    world_.windowsDidChange();
}

void Windows::enterFullScreen(WindowId id) {
    Window* window = world_.window(id);
    if (!window || window->frameBeforeFullScreen || world_.displays.empty()) return;
    Display& display = world_.displayOf(*window);
    window->frameBeforeFullScreen = window->frame;
    window->frame = display.bounds;
    const SpaceId space = displays_.addFullScreenSpace(display);
    window->space = space;
    raise(id);
    displays_.showSpace(space);
}

void Windows::leaveFullScreen(WindowId id) {
    Window* window = world_.window(id);
    if (!window || !window->frameBeforeFullScreen) return;
    window->frame = *std::exchange(window->frameBeforeFullScreen, std::nullopt);
    if (window->space) displays_.removeSpace(*window->space);
    // Its Space may already have been removed with its display.
    world_.windowsDidChange();
}

void Windows::raise(WindowId id) {
    const auto found = std::find_if(world_.windows.begin(), world_.windows.end(),
                                    [id](const Window& window) { return window.id == id; });
    if (found == world_.windows.end()) return;
    std::rotate(world_.windows.begin(), found, found + 1);
    world_.windowsDidChange();
}

void Windows::raiseAll(ProcessId pid) {
    std::stable_partition(world_.windows.begin(), world_.windows.end(),
                          [pid](const Window& window) { return window.pid == pid; });
    world_.windowsDidChange();
}

Window* Windows::front(ProcessId pid) {
    const auto found = std::find_if(world_.windows.begin(), world_.windows.end(),
                                    [this, pid](const Window& window) {
                                        return window.pid == pid && world_.isOnScreen(window);
                                    });
    return found == world_.windows.end() ? nullptr : &*found;
}

ProcessId Windows::frontmostOwner() const {
    for (const Window& window : world_.windows) {
        const bool hasOwner = world_.app(window.pid) != nullptr;
        if (hasOwner && window.layer == 0 && world_.isOnScreen(window)) return window.pid;
    }
    return 0;
}

} // namespace larkspan::sim
