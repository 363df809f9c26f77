#pragma once

#include "adapters/x11/connection/X11Connection.h"

#include <array>
#include <cstdint>

namespace larkspan::x11 {

/// The bits of XInput's events, of its numbers 0 to 31 and 32 to 63.
using XInputMask = std::array<std::uint32_t, 2>;
inline constexpr XInputMask noEvents{0, 0};

/// Whether the X server knows XInput 2 at least up to that minor version.
bool knowsXInput(X11Connection& connection, int minor);

/// Selects these events on the root window, in place of those selected there for `device` before;
/// false when another program has what only one may have.
bool selectXInput(X11Connection& connection, std::uint16_t device, const XInputMask& events);

/// XInput's number for the event; -1 when it is not one of XInput's.
int xInputType(X11Connection& connection, const xcb_generic_event_t& event);

} // namespace larkspan::x11
