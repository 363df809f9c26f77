#include "platform/numberFromText.h"

#include <locale>
#include <sstream>
#include <string>

namespace larkspan {

std::optional<double> numberFromText(std::string_view text) {
    // Libraries differ in what else they accept as a number (hexadecimal digits, "inf").
    if (text.find_first_not_of("0123456789+-.eE") != std::string_view::npos) return std::nullopt;
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    double number = 0;
    stream >> number;
    const bool isWhole = !stream.fail() && stream.peek() == std::istringstream::traits_type::eof();
    return isWhole ? std::optional(number) : std::nullopt;
}

} // namespace larkspan
