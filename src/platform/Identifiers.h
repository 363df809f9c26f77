#pragma once

#include <cstdint>

namespace larkspan {

using ProcessId = std::int32_t;
using DisplayId = std::uint32_t;
/// The window server's number of a window; 0 means none.
using WindowId = std::uint32_t;
using SpaceId = std::uint64_t;

/// The identifier of the file manager, which is first on the bar, on every desktop.
inline constexpr const char* finderIdentifier = "com.apple.finder";

} // namespace larkspan
