#include "adapters/x11/connection/X11Connection.h"

#include <fmt/format.h>

#include <algorithm>

namespace larkspan::x11 {

namespace {

// A client that keeps sending events must not prevent others from being shown.
constexpr int roundsBeforeSettling = 8;

const char* reasonOf(int error) {
    switch (error) {
    case XCB_CONN_CLOSED_PARSE_ERR:
        return "invalid display name";
    case XCB_CONN_CLOSED_INVALID_SCREEN:
        return "no such screen";
    case XCB_CONN_CLOSED_MEM_INSUFFICIENT:
        return "out of memory";
    default:
        return "there is no X server, or access was denied";
    }
}

void send(xcb_connection_t* connection, xcb_window_t receiver, std::uint32_t mask,
          xcb_window_t window, xcb_atom_t type, const std::uint32_t (&data)[5]) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = type;
    std::copy(std::begin(data), std::end(data), event.data.data32);
    xcb_send_event(connection, 0, receiver, mask, reinterpret_cast<const char*>(&event));
}

} // namespace

std::variant<std::unique_ptr<X11Connection>, std::string>
X11Connection::open(const char* displayName, Scheduler& scheduler) {
    int screenNumber = 0;
    auto* connection = xcb_connect(displayName, &screenNumber);
    const auto fail = [&](const char* reason) {
        const char* fromEnvironment = std::getenv("DISPLAY");
        const char* name = displayName ? displayName : fromEnvironment ? fromEnvironment : "";
        xcb_disconnect(connection);
        if (*name == '\0')
            return std::string("larkspan: cannot open a display: DISPLAY is not set");
        return fmt::format("larkspan: cannot open display \"{}\": {}", name, reason);
    };
    if (const int error = xcb_connection_has_error(connection)) return fail(reasonOf(error));

    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (int i = 0; i < screenNumber && screens.rem > 1; ++i)
        xcb_screen_next(&screens);
    if (screens.rem == 0) return fail("it has no screens");
    return std::unique_ptr<X11Connection>(new X11Connection(connection, screens.data, scheduler));
}

X11Connection::X11Connection(xcb_connection_t* connection, const xcb_screen_t* screen,
                             Scheduler& scheduler)
    : connection_(connection)
    , screen_(screen)
    , scheduler_(scheduler)
    , atoms_(connection) {}

X11Connection::~X11Connection() {
    watch_.reset();
    taken_.clear();
    xcb_disconnect(connection_);
}

void X11Connection::start(const Watch& watch) {
    isStarted_ = true;
    watch_ = watch(xcb_get_file_descriptor(connection_), [this] { dispatch(); });
    // Events that arrived with the first replies are in xcb's queue and do not wake the watch.
    dispatch();
}

void X11Connection::dispatch() {
    if (isDispatching_ || isGone_) return;
    isDispatching_ = true;
    for (int round = 0; round < roundsBeforeSettling; ++round) {
        handOut();
        drained.emit();
        if (auto* event = xcb_poll_for_queued_event(connection_))
            taken_.emplace_back(event);
        else
            break;
    }
    settled.emit();
    xcb_flush(connection_);
    isDispatching_ = false;
    if (!taken_.empty()) dispatchSoon();
    dispatchWhatWasRead();
    checkGone();
}

void X11Connection::handOut() {
    while (true) {
        Event event;
        if (!taken_.empty()) {
            event = std::move(taken_.front());
            taken_.pop_front();
        } else {
            event.reset(xcb_poll_for_event(connection_));
        }
        if (!event) return;
        noteTime(*event);
        events.emit(*event);
    }
}

// Waiting for a reply or sending may read events into xcb's own queue. The file descriptor is then
// no longer readable, so they would stay there until the next event.
void X11Connection::dispatchWhatWasRead() {
    if (!scheduler_.isMainThread()) {
        dispatchSoon();
        return;
    }
    if (!isStarted_ || isDispatching_) return;
    if (auto* event = xcb_poll_for_queued_event(connection_)) {
        taken_.emplace_back(event);
        dispatchSoon();
    }
}

void X11Connection::dispatchSoon() {
    scheduler_.post([this, life = std::weak_ptr(life_)] {
        if (!life.expired()) dispatch();
    });
}

void X11Connection::noteTime(const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) == XCB_PROPERTY_NOTIFY)
        lastTime_ = reinterpret_cast<const xcb_property_notify_event_t&>(event).time;
}

void X11Connection::checkGone() {
    if (isGone_ || isAlive()) return;
    isGone_ = true;
    // A closed connection stays readable: watching it further would spin.
    watch_.reset();
    if (onGone) onGone("larkspan: the connection to the X server was lost");
}

void X11Connection::perform(std::function<void()> requests) {
    if (!scheduler_.isMainThread()) {
        scheduler_.post([this, life = std::weak_ptr(life_), requests = std::move(requests)] {
            if (!life.expired()) perform(requests);
        });
        return;
    }
    requests();
    flush();
}

void X11Connection::sendToRoot(xcb_window_t window, xcb_atom_t type,
                               const std::uint32_t (&data)[5]) {
    send(connection_, root(),
         XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT, window, type,
         data);
}

void X11Connection::sendToWindow(xcb_window_t window, xcb_atom_t type,
                                 const std::uint32_t (&data)[5]) {
    send(connection_, window, XCB_EVENT_MASK_NO_EVENT, window, type, data);
}

void X11Connection::flush() {
    xcb_flush(connection_);
    dispatchWhatWasRead();
}

} // namespace larkspan::x11
