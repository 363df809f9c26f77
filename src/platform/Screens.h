#pragma once

#include "platform/Geometry.h"
#include "platform/Handle.h"
#include "platform/Identifiers.h"

#include <functional>
#include <string>
#include <vector>

namespace larkspan {

struct Screen {
    DisplayId display = 0;
    /// The window server's name for the display: a UUID on a Mac, the output's name on X11.
    std::string displayIdentifier;
    /// Screen coordinates (y upwards).
    Rect frame;
    /// The part of `frame` that windows may use, without menu bar and Dock strip. Screen
    /// coordinates.
    Rect visibleFrame;
    /// The same rectangle as `frame` in display coordinates (y downwards).
    Rect bounds;
    /// Pixels per point.
    double scale = 1;

    bool operator==(const Screen&) const = default;
};

/// The screens in the system's order, the main screen first. Main thread only.
class Screens {
  public:
    virtual ~Screens() = default;
    virtual std::vector<Screen> screens() const = 0;
    /// Called after screens were added, removed or moved, or their visible frames changed.
    virtual Handle subscribe(std::function<void()> callback) = 0;
};

} // namespace larkspan
