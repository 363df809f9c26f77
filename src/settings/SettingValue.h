#pragma once

#include "settings/Setting.h"

#include <optional>
#include <string>
#include <string_view>

namespace larkspan {

// The rules by which a row's value is accepted. What they return has the row's own type: a choice
// is a std::string, a number a double, a color an array of four doubles, a list an array of
// strings, a flag a bool.

/// The value in effect for what is stored. Types are strict: a number stored as a string is not a
/// number, and neither is a bool.
SettingValue acceptStored(const Setting& setting, const std::optional<PropertyValue>& stored);

/// What a person typed, as a value; absent when it may not be chosen.
std::optional<SettingValue> parseSetting(const Setting& setting, std::string_view text);

/// What may be typed, as the end of a sentence: "bar or island".
std::string acceptedText(const Setting& setting);

} // namespace larkspan
