#pragma once

#include "adapters/x11/connection/X11Connection.h"

#include <array>
#include <cstdint>

namespace larkspan::x11 {

/// The bits of XInput's events 0 to 31 and 32 to 63.
using XInputMask = std::array<std::uint32_t, 2>;
inline constexpr XInputMask noEvents{0, 0};

/// Whether the X server supports XInput 2 in at least that minor version.
bool knowsXInput(X11Connection& connection, int minor);

/// Selects these events on the root window and replaces the earlier selection for `device`. Returns
/// false if another program has selected an event that only one client may select.
bool selectXInput(X11Connection& connection, std::uint16_t device, const XInputMask& events);

/// XInput's number for the event; -1 if it is not an XInput event.
int xInputType(X11Connection& connection, const xcb_generic_event_t& event);

} // namespace larkspan::x11
