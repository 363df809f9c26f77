#include "adapters/x11/input/X11EventMonitors.h"

#include "adapters/x11/connection/XInput.h"

#include <memory>
#include <utility>

#include <xcb/xinput.h>

namespace larkspan::x11 {

namespace {

/// Seconds without listening after each reported move.
constexpr double pauseAfterMove = 0.05;

constexpr XInputMask motions{XCB_INPUT_XI_EVENT_MASK_RAW_MOTION, 0};

} // namespace

X11EventMonitors::X11EventMonitors(X11Connection& connection, Scheduler& scheduler,
                                   const Screens& screens, double scale)
    : connection_(connection)
    , scheduler_(scheduler)
    , screens_(screens)
    , scale_(scale) {}

Point X11EventMonitors::mouseLocation() const {
    const auto pointer = connection_.reply(
        xcb_query_pointer_reply, xcb_query_pointer(connection_.raw(), connection_.root()));
    const auto screens = screens_.screens();
    if (!pointer || screens.empty()) return lastReported_;
    return {pointer->root_x / scale_, screens.front().frame.height - pointer->root_y / scale_};
}

Handle X11EventMonitors::addGlobalMonitor(InputEventMask mask, Callback callback) {
    if ((mask & maskOf(InputEventType::mouseMoved)) == 0) return {};
    if (!moves_.hasSubscribers() && knowsXInput(connection_, 1)) listen(true);
    auto subscription = std::make_shared<Handle>(moves_.subscribe(std::move(callback)));
    return Handle([this, subscription] {
        subscription->reset();
        if (moves_.hasSubscribers()) return;
        pause_.reset();
        if (motions_) listen(false);
    });
}

// For all devices: the selection for the master devices belongs to the swipes.
void X11EventMonitors::listen(bool isWanted) {
    motions_.reset();
    if (!connection_.isAlive()) return;
    selectXInput(connection_, XCB_INPUT_DEVICE_ALL, isWanted ? motions : noEvents);
    if (!isWanted) return;
    motions_ = connection_.events.subscribe([this](const xcb_generic_event_t& event) {
        if (xInputType(connection_, event) == XCB_INPUT_RAW_MOTION) reportMove();
    });
}

void X11EventMonitors::reportMove() {
    listen(false);
    pause_ = scheduler_.after(pauseAfterMove, [this] { listenAgain(); });
    lastReported_ = mouseLocation();
    moves_.emit({.type = InputEventType::mouseMoved, .location = lastReported_});
}

void X11EventMonitors::listenAgain() {
    listen(true);
    if (mouseLocation() != lastReported_) reportMove();
}

} // namespace larkspan::x11
