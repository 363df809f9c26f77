#pragma once

#include <string>
#include <string_view>

namespace larkspan::x11 {

// The encodings in which X11 clients write their titles, each converted to valid UTF-8. Invalid
// bytes become U+FFFD; the text ends at the first NUL.

std::string textFromUtf8(std::string_view bytes);
std::string textFromLatin1(std::string_view bytes);
/// ISO 2022 as restricted by X11: Latin-1 and embedded UTF-8 are converted; characters of other
/// sets become U+FFFD.
std::string textFromCompoundText(std::string_view bytes);

} // namespace larkspan::x11
