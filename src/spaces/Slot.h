#pragma once

#include "platform/Identifiers.h"

#include <optional>
#include <tuple>

namespace larkspan {

/// A place for window apps on the bar: a Space of a display, or, without a Space, the whole
/// display.
struct Slot {
    DisplayId display = 0;
    std::optional<SpaceId> space;

    bool operator==(const Slot&) const = default;
    /// Not defaulted: an optional of a Mac's library has no three-way comparison.
    bool operator<(const Slot& other) const {
        return std::tie(display, space) < std::tie(other.display, other.space);
    }
};

} // namespace larkspan
