#pragma once

#include "settings/Setting.h"

#include <optional>
#include <string>
#include <string_view>

namespace larkspan {

// The rules for accepting a row's value. Their results have the row's own type: a choice is a
// std::string, a number a double, a color an array of four doubles, a list an array of strings, a
// flag a bool.

/// The value to use for a stored one. Types are strict: a number stored as a string is not a
/// number, and neither is a bool.
SettingValue acceptStored(const Setting& setting, const std::optional<PropertyValue>& stored);

/// The value of a typed text; absent if it may not be chosen.
std::optional<SettingValue> parseSetting(const Setting& setting, std::string_view text);

/// The accepted texts, as the end of a sentence: "bar or island".
std::string acceptedText(const Setting& setting);

} // namespace larkspan
