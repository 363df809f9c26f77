#pragma once

#include "platform/Geometry.h"
#include "platform/Screens.h"

#include <memory>

namespace larkspan {

/// The bar's window on one screen, as the bar controller moves it. The views implement it. Main
/// thread only.
class BarPanel {
  public:
    virtual ~BarPanel() = default;
    /// Places the bar at the bottom of the screen, `height` points high. May be called at any time.
    virtual void place(const Screen& screen, double height) = 0;
    /// Shows the panel without taking the focus.
    virtual void orderIn() = 0;
    virtual void orderOut() = 0;
    /// Lets the user walk over the tiles with the keyboard until a tile is chosen or the bar is
    /// left. False while another program holds the keyboard.
    virtual bool takeKeyboard() = 0;
    /// The frame of what is visible of the bar (for an island, the island alone), in screen
    /// coordinates.
    virtual Rect barFrame() const = 0;
};

/// Makes the panels.
class BarPanels {
  public:
    virtual ~BarPanels() = default;
    virtual std::unique_ptr<BarPanel> makePanel(const Screen& screen) = 0;
};

} // namespace larkspan
