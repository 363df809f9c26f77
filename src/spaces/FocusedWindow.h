#pragma once

#include "platform/Geometry.h"
#include "platform/Identifiers.h"
#include "platform/Screens.h"

#include <optional>
#include <vector>

namespace larkspan {

/// The focused window of the frontmost app, from Accessibility.
struct FocusedWindow {
    WindowId id = 0;
    /// Display coordinates.
    Rect frame;

    bool operator==(const FocusedWindow&) const = default;
};

/// The screen that the window fills: it spans the width, and reaches from the menu bar, or higher,
/// down over the bar's strip. Absent if it fills none.
std::optional<Screen> screenFilledBy(const Rect& windowFrame, const std::vector<Screen>& screens,
                                     double barHeight);

} // namespace larkspan
