#include "adapters/sim/world/WindowNotifications.h"

#include <utility>

namespace larkspan::sim {

WindowNotifications::WindowNotifications(World& world, Windows& windows)
    : world_(world)
    , windows_(windows)
    , changes_(world.windowsTouched.subscribe([this] { compare(); })) {}

Handle WindowNotifications::observe(ProcessId pid, WindowId window, std::string name,
                                    std::function<void()> callback) {
    known_.try_emplace(pid, factsOf(pid));
    return notifications_.subscribe([observed = Observer{pid, window, std::move(name)},
                                     callback = std::move(callback)](const Observer& what) {
        const bool isMeant = observed.window == 0 || observed.window == what.window;
        if (observed.pid == what.pid && observed.name == what.name && isMeant) callback();
    });
}

WindowNotifications::Facts WindowNotifications::factsOf(ProcessId pid) {
    Facts facts;
    if (const Window* front = windows_.front(pid)) facts.focused = front->id;
    for (const Window& window : world_.windows)
        if (window.pid == pid) facts.frames[window.id] = window.frame;
    return facts;
}

void WindowNotifications::compare() {
    if (!notifications_.hasSubscribers()) known_.clear();
    for (auto& [pid, facts] : known_) {
        const App* app = world_.app(pid);
        if (!app || app->hung) continue;
        const Facts before = std::exchange(facts, factsOf(pid));
        announceDifferences(pid, before, facts);
    }
}

void WindowNotifications::announceDifferences(ProcessId pid, const Facts& before,
                                              const Facts& now) {
    for (const auto& [window, frame] : before.frames) {
        const auto found = now.frames.find(window);
        if (found == now.frames.end()) {
            announce(pid, window, "AXUIElementDestroyed");
            continue;
        }
        const Rect& after = found->second;
        if (Point{frame.x, frame.y} != Point{after.x, after.y})
            announce(pid, window, "AXWindowMoved");
        if (Size{frame.width, frame.height} != Size{after.width, after.height})
            announce(pid, window, "AXWindowResized");
    }
    if (now.focused != 0 && now.focused != before.focused)
        announce(pid, now.focused, "AXFocusedWindowChanged");
}

void WindowNotifications::announce(ProcessId pid, WindowId window, const char* name) {
    world_.send([this, what = Observer{pid, window, name}] { notifications_.emit(what); });
}

} // namespace larkspan::sim
