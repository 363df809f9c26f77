#pragma once

#include <optional>
#include <string_view>

namespace larkspan {

/// The finite number written in the whole text, with a decimal point in every locale; absent if
/// there is none. (The Mac's library has no std::from_chars for it.)
std::optional<double> numberFromText(std::string_view text);

} // namespace larkspan
