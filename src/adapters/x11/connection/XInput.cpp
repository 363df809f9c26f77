#include "adapters/x11/connection/XInput.h"

#include <xcb/xinput.h>

namespace larkspan::x11 {

bool knowsXInput(X11Connection& connection, int minor) {
    auto* raw = connection.raw();
    const auto* extension = xcb_get_extension_data(raw, &xcb_input_id);
    if (!extension || !extension->present) return false;
    // The same version for all callers: a later request for an older version would replace it.
    const auto version =
        connection.reply(xcb_input_xi_query_version_reply, xcb_input_xi_query_version(raw, 2, 4));
    return version && version->major_version == 2 && version->minor_version >= minor;
}

bool selectXInput(X11Connection& connection, std::uint16_t device, const XInputMask& events) {
    const struct {
        xcb_input_event_mask_t head;
        XInputMask events;
    } mask{{device, 2}, events};
    auto* raw = connection.raw();
    auto* error = xcb_request_check(
        raw, xcb_input_xi_select_events_checked(raw, connection.root(), 1, &mask.head));
    std::free(error);
    // Events may have arrived with the reply.
    connection.dispatchSoon();
    return error == nullptr;
}

int xInputType(X11Connection& connection, const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) != XCB_GE_GENERIC) return -1;
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    const auto* extension = xcb_get_extension_data(connection.raw(), &xcb_input_id);
    const bool isOurs =
        extension && extension->present && generic.extension == extension->major_opcode;
    return isOurs ? generic.event_type : -1;
}

} // namespace larkspan::x11
