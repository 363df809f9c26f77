#include "adapters/x11/windows/PropertyText.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace larkspan::x11 {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";
constexpr char escape = '\x1b';

std::string_view upToNul(std::string_view bytes) {
    return bytes.substr(0, bytes.find('\0'));
}

void appendLatin1(std::string& text, unsigned char character) {
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else {
        text += static_cast<char>(0xC0 | (character >> 6));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

// The length of the well-formed sequence at the start of the bytes; 0 if there is none.
std::size_t sequenceLength(std::string_view bytes) {
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = at(0);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((at(i) & 0xC0) != 0x80) return 0;
    const bool isOverlong = (lead == 0xE0 && at(1) < 0xA0) || (lead == 0xF0 && at(1) < 0x90);
    const bool isSurrogate = lead == 0xED && at(1) >= 0xA0;
    const bool isTooHigh = lead == 0xF4 && at(1) >= 0x90;
    return isOverlong || isSurrogate || isTooHigh ? 0 : length;
}

// The escape sequence at the start: ESC, intermediate bytes 0x20...0x2F, one final byte.
std::string_view escapeSequence(std::string_view bytes) {
    std::size_t end = 1;
    while (end < bytes.size() && bytes[end] >= 0x20 && bytes[end] <= 0x2F)
        ++end;
    return bytes.substr(0, end + 1);
}

} // namespace

std::string textFromUtf8(std::string_view bytes) {
    bytes = upToNul(bytes);
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto length = sequenceLength(bytes);
        text += length > 0 ? bytes.substr(0, length) : replacement;
        bytes.remove_prefix(length > 0 ? length : 1);
    }
    return text;
}

std::string textFromLatin1(std::string_view bytes) {
    std::string text;
    for (const char character : upToNul(bytes))
        appendLatin1(text, static_cast<unsigned char>(character));
    return text;
}

std::string textFromCompoundText(std::string_view bytes) {
    bytes = upToNul(bytes);
    std::string text;
    bool isForeign = false;
    while (!bytes.empty()) {
        if (bytes.front() != escape) {
            if (!isForeign) appendLatin1(text, static_cast<unsigned char>(bytes.front()));
            bytes.remove_prefix(1);
            continue;
        }
        const auto sequence = escapeSequence(bytes);
        bytes.remove_prefix(sequence.size());
        if (sequence == "\x1b%G") {
            const auto end = bytes.find("\x1b%@");
            text += textFromUtf8(bytes.substr(0, end));
            bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 3);
            continue;
        }
        const bool isLatin = sequence == "\x1b(B" || sequence == "\x1b-A" || sequence == "\x1b%@";
        if (!isLatin && !isForeign) text += replacement;
        isForeign = !isLatin;
    }
    return text;
}

} // namespace larkspan::x11
