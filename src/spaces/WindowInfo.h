#pragma once

#include "platform/Geometry.h"
#include "platform/Identifiers.h"

#include <string>

namespace larkspan {

/// An entry of the window server's list that counts as an app window.
struct WindowInfo {
    /// 0 if the entry has no number.
    WindowId id = 0;
    ProcessId pid = 0;
    /// Display coordinates (y downwards).
    Rect bounds;
    bool isOnScreen = false;
    std::string title;

    bool operator==(const WindowInfo&) const = default;
};

} // namespace larkspan
