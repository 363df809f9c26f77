#pragma once

#include <string>
#include <string_view>

namespace larkspan::x11 {

// The encodings in which X11 clients write their titles, each made into valid UTF-8. What cannot be
// read becomes U+FFFD; text ends at the first NUL.

std::string textFromUtf8(std::string_view bytes);
std::string textFromLatin1(std::string_view bytes);
/// ISO 2022 as X11 restricts it: Latin-1 and embedded UTF-8 are read, other character sets become
/// one U+FFFD each.
std::string textFromCompoundText(std::string_view bytes);

} // namespace larkspan::x11
