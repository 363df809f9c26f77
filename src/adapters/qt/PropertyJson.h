#pragma once

#include "platform/PropertyValue.h"

#include <optional>
#include <string>
#include <string_view>

namespace larkspan::qt {

// Property-list values as readable JSON. Values that JSON cannot represent are wrapped: bytes as
// {"$data": base64}, text that is not UTF-8 as {"$text": base64}, numbers that JSON lacks as
// {"$number": "nan"}, and a dictionary that looks like one of these as {"$dictionary": {…}}. A
// whole double keeps its ".0".

/// The text of a file with the dictionary, indented, with a newline at the end.
std::string jsonText(const PropertyValue::Dictionary& values);

/// The dictionary in such a text. Absent if the text is not a JSON object or is nested too deeply.
/// Entries that are null are skipped.
std::optional<PropertyValue::Dictionary> parseJsonText(std::string_view text);

} // namespace larkspan::qt
