#include "platform/x11/X11EventTaps.h"

#include "platform/x11/TouchpadSwipe.h"

#include <utility>

#include <xcb/xinput.h>

namespace larkspan::x11 {

namespace {

using SwipeEvent = xcb_input_gesture_swipe_update_event_t;

constexpr std::uint32_t allSwipes[] = {1U << XCB_INPUT_GESTURE_SWIPE_BEGIN |
                                           1U << XCB_INPUT_GESTURE_SWIPE_UPDATE,
                                       1U << (XCB_INPUT_GESTURE_SWIPE_END - 32)};

/// A step of a touchpad's swipe in the shape of a Mac's gesture event.
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

/// Answers whether it could be done.
bool select(X11Connection& connection, const std::uint32_t (&events)[2]) {
    const struct {
        xcb_input_event_mask_t head;
        std::uint32_t events[2];
    } mask{{XCB_INPUT_DEVICE_ALL_MASTER, 2}, {events[0], events[1]}};
    auto* raw = connection.raw();
    auto* error = xcb_request_check(
        raw, xcb_input_xi_select_events_checked(raw, connection.root(), 1, &mask.head));
    std::free(error);
    connection.flush();
    return error == nullptr;
}

bool knowsGestures(X11Connection& connection) {
    auto* raw = connection.raw();
    const auto* extension = xcb_get_extension_data(raw, &xcb_input_id);
    if (!extension || !extension->present) return false;
    const auto version =
        connection.reply(xcb_input_xi_query_version_reply, xcb_input_xi_query_version(raw, 2, 4));
    return version && version->major_version == 2 && version->minor_version >= 4;
}

class X11EventTap final : public EventTap {
  public:
    /// `isListening` stays true as long as it lives.
    X11EventTap(X11Connection& connection, EventTaps::Callback callback, bool& isListening)
        : connection_(connection)
        , callback_(std::move(callback))
        , isListening_(isListening)
        , opcode_(xcb_get_extension_data(connection.raw(), &xcb_input_id)->major_opcode)
        , subscription_(connection.events.subscribe(
              [this](const xcb_generic_event_t& event) { handle(event); })) {
        isListening_ = true;
    }
    ~X11EventTap() override {
        isListening_ = false;
        if (connection_.isAlive()) select(connection_, {0, 0});
    }
    // An X server disables nothing.
    void enable() override {}

  private:
    void handle(const xcb_generic_event_t& event);
    void hand(const SwipeStep& step) { callback_(*this, DockSwipe(step)); }

    X11Connection& connection_;
    EventTaps::Callback callback_;
    bool& isListening_;
    std::uint8_t opcode_;
    TouchpadSwipe swipe_;
    Handle subscription_;
};

void X11EventTap::handle(const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) != XCB_GE_GENERIC) return;
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (generic.extension != opcode_) return;
    const auto& swipe = reinterpret_cast<const SwipeEvent&>(event);
    switch (generic.event_type) {
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
    if (!knowsGestures(connection_) || !select(connection_, allSwipes)) return nullptr;
    return std::make_unique<X11EventTap>(connection_, std::move(callback), isListening_);
}

} // namespace larkspan::x11
