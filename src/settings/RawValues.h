#pragma once

#include "settings/BarLook.h"

#include <optional>
#include <string_view>

namespace larkspan {

// The settings' enumerations as the strings under which they are stored, exactly as written.

std::string_view rawValue(BarMode mode);
std::string_view rawValue(BarStyle style);
std::string_view rawValue(GlassKind glass);
std::string_view rawValue(BarTool tool);

/// The case of that raw value; absent when the type has none. Defined for the types above.
template <typename Enumeration>
std::optional<Enumeration> fromRawValue(std::string_view text);

template <>
std::optional<BarMode> fromRawValue(std::string_view text);
template <>
std::optional<BarStyle> fromRawValue(std::string_view text);
template <>
std::optional<GlassKind> fromRawValue(std::string_view text);
template <>
std::optional<BarTool> fromRawValue(std::string_view text);

} // namespace larkspan
