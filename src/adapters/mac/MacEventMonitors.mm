#include "adapters/mac/MacEventMonitors.h"

#import <AppKit/AppKit.h>

#include <utility>

namespace larkspan::mac {
namespace {

static_assert(NSEventMaskLeftMouseDown == maskOf(InputEventType::leftMouseDown));
static_assert(NSEventMaskLeftMouseUp == maskOf(InputEventType::leftMouseUp));
static_assert(NSEventMaskRightMouseDown == maskOf(InputEventType::rightMouseDown));
static_assert(NSEventMaskMouseMoved == maskOf(InputEventType::mouseMoved));
static_assert(NSEventMaskLeftMouseDragged == maskOf(InputEventType::leftMouseDragged));
static_assert(NSEventMaskKeyDown == maskOf(InputEventType::keyDown));
static_assert(NSEventModifierFlagShift == ModifierFlag::shift);
static_assert(NSEventModifierFlagControl == ModifierFlag::control);
static_assert(NSEventModifierFlagOption == ModifierFlag::option);
static_assert(NSEventModifierFlagCommand == ModifierFlag::command);

constexpr InputEventMask moves =
    maskOf(InputEventType::mouseMoved) | maskOf(InputEventType::leftMouseDragged);

Point pointOf(NSPoint point) {
    return {point.x, point.y};
}

// The event's own location is relative to a window, and here there may be none.
InputEvent valueOf(NSEvent* event) {
    return {.type = static_cast<InputEventType>(event.type),
            .modifierFlags = event.modifierFlags,
            .location = pointOf(NSEvent.mouseLocation)};
}

Handle removalOf(id monitor) {
    if (monitor == nil) return {};
    return Handle([monitor] { [NSEvent removeMonitor:monitor]; });
}

} // namespace

Point MacEventMonitors::mouseLocation() const {
    return pointOf(NSEvent.mouseLocation);
}

Handle MacEventMonitors::addGlobalMonitor(InputEventMask mask, Callback callback) {
    auto others = std::make_shared<Handle>(
        removalOf([NSEvent addGlobalMonitorForEventsMatchingMask:mask
                                                         handler:^(NSEvent* event) {
                                                           callback(valueOf(event));
                                                         }]));
    // A global monitor does not receive events for this program, so moves over the bar would be
    // missing.
    if ((mask & moves) == 0) return Handle([others] { others->reset(); });
    auto own = std::make_shared<Handle>(
        removalOf([NSEvent addLocalMonitorForEventsMatchingMask:mask & moves
                                                        handler:^NSEvent*(NSEvent* event) {
                                                          callback(valueOf(event));
                                                          return event;
                                                        }]));
    return Handle([others, own] {
        others->reset();
        own->reset();
    });
}

} // namespace larkspan::mac
