#pragma once

#include <optional>
#include <string_view>

namespace larkspan {

/// The finite number that the whole text spells, with a point for its decimals whatever the user's
/// language; absent when it spells none. (A Mac's library has no std::from_chars for it.)
std::optional<double> numberFromText(std::string_view text);

} // namespace larkspan
