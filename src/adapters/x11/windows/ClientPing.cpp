#include "adapters/x11/windows/ClientPing.h"

#include "adapters/x11/connection/Atoms.h"
#include "adapters/x11/connection/X11Connection.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include <poll.h>

namespace larkspan::x11 {

namespace {

using Connection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

void ping(xcb_connection_t* connection, const Atoms& atoms, WindowId window) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atoms.wmProtocols;
    event.data.data32[0] = atoms.netWmPing;
    event.data.data32[1] = XCB_CURRENT_TIME;
    event.data.data32[2] = window;
    xcb_send_event(connection, 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&event));
}

/// Reads what has arrived; returns whether one of the windows has replied.
bool takeReply(xcb_connection_t* connection, const Atoms& atoms,
               const std::vector<WindowId>& windows) {
    while (const Event event{xcb_poll_for_event(connection)}) {
        if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE) continue;
        const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
        if (message.type == atoms.wmProtocols && message.data.data32[0] == atoms.netWmPing &&
            std::ranges::find(windows, message.data.data32[2]) != windows.end())
            return true;
    }
    return false;
}

} // namespace

bool ClientPing::hasReply(const std::vector<WindowId>& windows, double seconds) const {
    if (windows.empty() || scheduler_.isMainThread()) return true;
    const double deadline = scheduler_.uptime() + seconds;
    int screenNumber = 0;
    const char* name = display_.empty() ? nullptr : display_.c_str();
    const Connection connection(xcb_connect(name, &screenNumber), xcb_disconnect);
    if (xcb_connection_has_error(connection.get())) return true;
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
    for (int i = 0; i < screenNumber && screens.rem > 1; ++i)
        xcb_screen_next(&screens);

    const Atoms atoms(connection.get());
    const std::uint32_t answers = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection.get(), screens.data->root, XCB_CW_EVENT_MASK, &answers);
    for (const auto window : windows)
        ping(connection.get(), atoms, window);
    xcb_flush(connection.get());
    while (!takeReply(connection.get(), atoms, windows)) {
        const double left = deadline - scheduler_.uptime();
        if (left <= 0) return false;
        if (xcb_connection_has_error(connection.get())) return true;
        pollfd readable{xcb_get_file_descriptor(connection.get()), POLLIN, 0};
        poll(&readable, 1, static_cast<int>(std::ceil(left * 1000)));
    }
    return true;
}

} // namespace larkspan::x11
