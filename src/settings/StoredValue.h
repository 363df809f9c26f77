#pragma once

#include "platform/UserDefaults.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan {

// A stored value as the type a setting wants; absent when the key is missing or holds another type.
// Types are strict: a number stored as a string is no number, and neither is a truth value.

std::optional<double> storedNumber(const UserDefaults& defaults, std::string_view key);
std::optional<bool> storedBool(const UserDefaults& defaults, std::string_view key);
std::optional<std::string> storedString(const UserDefaults& defaults, std::string_view key);
/// Absent as soon as one element is of another type.
std::optional<std::vector<double>> storedNumbers(const UserDefaults& defaults,
                                                 std::string_view key);
std::optional<std::vector<std::string>> storedStrings(const UserDefaults& defaults,
                                                      std::string_view key);

} // namespace larkspan
