#include "spaces/PointerWatcher.h"

#include <algorithm>

namespace larkspan {

namespace {

std::optional<DisplayId> displayAt(Point pointer, const std::vector<Screen>& screens) {
    if (screens.empty()) return std::nullopt;
    // In display coordinates, where a screen includes its upper edge but not its lower one, so that
    // the topmost row of pixels belongs to it.
    const Point place{pointer.x, screens.front().frame.height - pointer.y};
    const auto found = std::ranges::find_if(
        screens, [&](const Screen& screen) { return screen.bounds.contains(place); });
    if (found == screens.end()) return std::nullopt;
    return found->display;
}

} // namespace

PointerWatcher::PointerWatcher(Screens& screens, EventMonitors& monitors)
    : screens_(screens)
    , monitors_(monitors) {
    screenChanges_ = screens_.subscribe([this] { screensChanged(); });
    screensChanged();
}

void PointerWatcher::screensChanged() {
    known_ = screens_.screens();
    if (known_.size() < 2)
        moves_.reset();
    else if (!moves_)
        moves_ = monitors_.addGlobalMonitor(
            maskOf(InputEventType::mouseMoved) | maskOf(InputEventType::leftMouseDragged),
            [this](const InputEvent& event) { follow(event.location); });
    follow(monitors_.mouseLocation());
}

void PointerWatcher::follow(Point pointer) {
    // Wherever the pointer is reported, there is only one display.
    const auto display = known_.size() == 1 ? known_.front().display : displayAt(pointer, known_);
    if (display == display_) return;
    display_ = display;
    if (onDisplayChange) onDisplayChange();
}

} // namespace larkspan
