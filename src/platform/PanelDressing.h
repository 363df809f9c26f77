#pragma once

#include "platform/Geometry.h"
#include "platform/Identifiers.h"
#include "platform/Screens.h"

#include <cstdint>
#include <map>

namespace larkspan {

/// A native window, as the views' toolkit returns it: an X11 window, an NSView.
using NativeWindow = std::uintptr_t;

/// Turns a toolkit's window into a panel of the desktop, with requests that the toolkit does not
/// support. Main thread only.
class PanelDressing {
  public:
    virtual ~PanelDressing() = default;
    /// Call it before the window is first shown: it floats above others, on every Space, never gets
    /// the focus by a click, and is not in window lists.
    virtual void dress(NativeWindow window) = 0;
    /// Keeps other windows out of the bottom `height` points of the screen while the panel is
    /// shown; 0 releases the strip. No effect if the system Dock reserves the strip.
    virtual void reserveStrip(NativeWindow window, const Screen& screen, double height) = 0;
    /// Lets the pointer through everywhere except inside the rectangle, which is in the window's
    /// own coordinates from its top left, in points.
    virtual void setInputArea(NativeWindow window, const Rect& area) = 0;
    /// The positions of the running apps' tiles on the display's panel (display coordinates), for a
    /// desktop that animates minimising windows. Empty when the panel is hidden.
    virtual void setTiles(DisplayId, const std::map<ProcessId, Rect>&) {}
    /// Call it after a shown panel had the keyboard focus: gives it to the frontmost program, if
    /// the desktop does not do so itself.
    virtual void giveKeyboardBack(NativeWindow) {}
};

} // namespace larkspan
