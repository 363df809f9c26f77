#include "adapters/x11/connection/displayError.h"

#include <cstdlib>
#include <fmt/format.h>
#include <xcb/xcb.h>

namespace larkspan::x11 {

std::optional<std::string> displayError() {
    const char* name = std::getenv("DISPLAY");
    if (!name || *name == '\0') return "there is no display: DISPLAY is not set";
    auto* connection = xcb_connect(nullptr, nullptr);
    const bool isBroken = xcb_connection_has_error(connection) != 0;
    xcb_disconnect(connection);
    if (!isBroken) return std::nullopt;
    return fmt::format("cannot open display {}", name);
}

} // namespace larkspan::x11
