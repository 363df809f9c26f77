#pragma once

#include "platform/Geometry.h"
#include "platform/Identifiers.h"
#include "platform/Screens.h"

#include <cstdint>
#include <map>

namespace larkspan {

/// A native window as the views' toolkit hands it out: an X11 window, an NSView.
using NativeWindow = std::uintptr_t;

/// Makes a toolkit's window into a panel of the desktop: what the toolkit itself has no words for.
/// Main thread only.
class PanelDressing {
  public:
    virtual ~PanelDressing() = default;
    /// Before the window is first shown: floating above others, on every Space, never focused by a
    /// click, absent from window lists.
    virtual void dress(NativeWindow window) = 0;
    /// Keeps other windows clear of the bottom `height` points of the screen while the panel shows;
    /// 0 gives the strip back. Without effect where the system Dock holds the strip.
    virtual void reserveStrip(NativeWindow window, const Screen& screen, double height) = 0;
    /// Lets the pointer through everywhere but inside the rectangle, given in the window's own
    /// coordinates from its top left, in points.
    virtual void setInputArea(NativeWindow window, const Rect& area) = 0;
    /// Where the panel on the display shows the tiles of running apps (display coordinates), for a
    /// desktop that lets windows fly there when they are minimised. None once it shows no more.
    virtual void setTiles(DisplayId, const std::map<ProcessId, Rect>&) {}
    /// After a shown panel had the keyboard: the program in front gets it, where it does not come
    /// back by itself.
    virtual void giveKeyboardBack(NativeWindow) {}
};

} // namespace larkspan
