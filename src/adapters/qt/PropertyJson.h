#pragma once

#include "platform/PropertyValue.h"

#include <optional>
#include <string>
#include <string_view>

namespace larkspan::qt {

// Property-list values as JSON that a person can read. What JSON cannot tell apart is wrapped:
// bytes as {"$data": base64}, text that is no UTF-8 as {"$text": base64}, numbers JSON has no words
// for as {"$number": "nan"}, and a dictionary that looks like one of these as {"$dictionary": {…}}.
// A whole double keeps its ".0".

/// The text of a file that holds the dictionary, indented, with a line end.
std::string jsonText(const PropertyValue::Dictionary& values);

/// The dictionary such a text holds. Absent when the text is no JSON object or is nested deeper
/// than any value of ours. Entries that are null are left out.
std::optional<PropertyValue::Dictionary> parseJsonText(std::string_view text);

} // namespace larkspan::qt
