#pragma once

#include "platform/Geometry.h"

#include <vector>

namespace larkspan {

/// What the bar must not cover. Screen frames, in screen coordinates.
struct FullScreenState {
    /// Displays whose current Space is a full-screen Space.
    std::vector<Rect> spaces;
    /// Displays covered by a single ordinary window.
    std::vector<Rect> windows;

    bool operator==(const FullScreenState&) const = default;
};

} // namespace larkspan
