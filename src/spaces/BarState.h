#pragma once

#include "platform/Identifiers.h"

namespace larkspan {

/// The appearance of one bar in one drawn frame.
struct BarState {
    DisplayId display = 0;
    /// Points by which it is slid down.
    double drop = 0;
    float opacity = 1;
    bool isOnScreen = false;
    /// Whether it should be shown, whatever its current position.
    bool isWanted = false;

    bool operator==(const BarState&) const = default;
};

} // namespace larkspan
