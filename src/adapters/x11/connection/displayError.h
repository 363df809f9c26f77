#pragma once

#include <optional>
#include <string>

namespace larkspan::x11 {

/// Why the display of $DISPLAY cannot be opened, in one line; absent if it can. Call it before the
/// toolkit starts, which aborts the program without a display.
std::optional<std::string> displayError();

} // namespace larkspan::x11
