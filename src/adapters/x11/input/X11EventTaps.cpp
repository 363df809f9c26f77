#include "adapters/x11/input/X11EventTaps.h"

#include "adapters/x11/connection/XInput.h"
#include "adapters/x11/input/TouchpadSwipe.h"

#include <utility>

#include <xcb/xinput.h>

namespace larkspan::x11 {

namespace {

using SwipeEvent = xcb_input_gesture_swipe_update_event_t;

constexpr XInputMask allSwipes{1U << XCB_INPUT_GESTURE_SWIPE_BEGIN |
                                   1U << XCB_INPUT_GESTURE_SWIPE_UPDATE,
                               1U << (XCB_INPUT_GESTURE_SWIPE_END - 32)};

bool selectDeviceEvents(X11Connection& connection, const XInputMask& events) {
    return selectXInput(connection, XCB_INPUT_DEVICE_ALL_MASTER, events);
}

/// A step of a touchpad's swipe in the format of a Mac's gesture event.
class DockSwipe final : public TappedEvent {
  public:
    explicit DockSwipe(const SwipeStep& step)
        : step_(step) {}

    std::uint32_t type() const override { return TapEvent::gesture; }
    std::int64_t integerField(std::uint32_t field) const override {
        switch (field) {
        case TapEvent::gestureKind:
            return TapEvent::dockSwipe;
        case TapEvent::swipeMotion:
            return step_.motion;
        case TapEvent::swipePhase:
            return step_.phase;
        default:
            return 0;
        }
    }
    double doubleField(std::uint32_t field) const override {
        if (field == TapEvent::swipeProgress) return step_.progress;
        return field == TapEvent::swipeVelocity ? step_.velocity : 0;
    }

  private:
    SwipeStep step_;
};

double fromFixed(xcb_input_fp1616_t value) {
    return static_cast<double>(value) / 65536;
}

class X11EventTap final : public EventTap {
  public:
    /// `isListening` is true as long as this exists.
    X11EventTap(X11Connection& connection, EventTaps::Callback callback, bool& isListening)
        : connection_(connection)
        , callback_(std::move(callback))
        , isListening_(isListening)
        , subscription_(connection.events.subscribe(
              [this](const xcb_generic_event_t& event) { handle(event); })) {
        isListening_ = true;
    }
    ~X11EventTap() override {
        isListening_ = false;
        if (connection_.isAlive()) selectDeviceEvents(connection_, noEvents);
    }
    // An X server never disables it.
    void enable() override {}

  private:
    void handle(const xcb_generic_event_t& event);
    void hand(const SwipeStep& step) { callback_(*this, DockSwipe(step)); }

    X11Connection& connection_;
    EventTaps::Callback callback_;
    bool& isListening_;
    TouchpadSwipe swipe_;
    Handle subscription_;
};

void X11EventTap::handle(const xcb_generic_event_t& event) {
    const auto& swipe = reinterpret_cast<const SwipeEvent&>(event);
    switch (xInputType(connection_, event)) {
    case XCB_INPUT_GESTURE_SWIPE_BEGIN:
        swipe_.begin();
        break;
    case XCB_INPUT_GESTURE_SWIPE_UPDATE:
        for (const auto& step :
             swipe_.move(fromFixed(swipe.delta_x), fromFixed(swipe.delta_y), swipe.time))
            hand(step);
        break;
    case XCB_INPUT_GESTURE_SWIPE_END: {
        const bool isCancelled =
            (swipe.flags & XCB_INPUT_GESTURE_SWIPE_EVENT_FLAGS_GESTURE_SWIPE_CANCELLED) != 0;
        if (const auto step = swipe_.lift(isCancelled, swipe.time)) hand(*step);
        break;
    }
    default:
        break;
    }
}

} // namespace

std::unique_ptr<EventTap> X11EventTaps::listen(std::uint64_t mask, Callback callback) {
    if (isListening_ || (mask >> TapEvent::gesture & 1) == 0) return nullptr;
    if (!knowsXInput(connection_, 4) || !selectDeviceEvents(connection_, allSwipes)) return nullptr;
    return std::make_unique<X11EventTap>(connection_, std::move(callback), isListening_);
}

} // namespace larkspan::x11
