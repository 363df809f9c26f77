#pragma once

#include <optional>
#include <string>

namespace larkspan::x11 {

/// Why the display of $DISPLAY cannot be reached, in one line; absent when it can. To be asked
/// before the toolkit starts, which aborts the program when there is no display.
std::optional<std::string> displayError();

} // namespace larkspan::x11
