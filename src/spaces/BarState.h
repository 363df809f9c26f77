#pragma once

#include "platform/Identifiers.h"

namespace larkspan {

/// What one bar looked like in one drawn frame.
struct BarState {
    DisplayId display = 0;
    /// Points by which it is slid down.
    double drop = 0;
    float opacity = 1;
    bool isOnScreen = false;
    /// Whether it is to be shown, wherever it is by now.
    bool isWanted = false;

    bool operator==(const BarState&) const = default;
};

} // namespace larkspan
