#pragma once

#include "platform/Identifiers.h"

#include <compare>
#include <optional>

namespace larkspan {

/// A place for window apps on the bar: a Space of a display, or, without a Space, the whole
/// display.
struct Slot {
    DisplayId display = 0;
    std::optional<SpaceId> space;
    auto operator<=>(const Slot&) const = default;
};

} // namespace larkspan
