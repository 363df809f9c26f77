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
    /// The window server's name of the display: a UUID on a Mac, the output's name on X11.
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
    /// Called after screens came, went, moved, or their visible frames changed.
    virtual Handle subscribe(std::function<void()> callback) = 0;
};

/// The strip at the bottom of every screen that windows keep clear of while the bar is in use. On a
/// Mac the system Dock holds it, and this does nothing; on a desktop without a system Dock the bars
/// hold it themselves, and the visible frames of `Screens` leave it out. Main thread only.
class DockStrip {
  public:
    virtual ~DockStrip() = default;
    /// Holds a strip of that height (points) on every screen, in place of any held before.
    virtual void hold(double height) = 0;
    virtual void release() = 0;
};

} // namespace larkspan
