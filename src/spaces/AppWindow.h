#pragma once

#include "platform/Accessibility.h"
#include "platform/Geometry.h"
#include "platform/Identifiers.h"

#include <string>

namespace larkspan {

/// A window of an app as the Accessibility tree describes it, matched to its window number.
struct AppWindow {
    WindowId id = 0;
    /// Used to raise the window later; absent if none is known.
    AXElementRef element;
    ProcessId pid = 0;
    std::string title;
    bool isMinimized = false;
    /// Display coordinates (y downwards).
    Rect frame;
    /// The window exists but is on no Space that is shown now.
    bool isOnOtherSpace = false;
};

} // namespace larkspan
