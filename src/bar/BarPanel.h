#pragma once

#include "platform/Geometry.h"
#include "platform/Screens.h"

#include <memory>

namespace larkspan {

class BarInteraction;
class BarPopups;

/// The bar's window on one screen, as the bar controller moves it. The views implement it. Main
/// thread only.
class BarPanel {
  public:
    virtual ~BarPanel() = default;
    /// Places the bar at the bottom of the screen, `height` points high. Returns the size in whole
    /// points that it has come to. May be called at any time.
    virtual Size place(const Screen& screen, double height) = 0;
    /// Shows the panel without taking the focus.
    virtual void orderIn() = 0;
    virtual void orderOut() = 0;
    /// Takes the keyboard, for as long as the interaction says that the bar has it. False while
    /// another program holds it.
    virtual bool takeKeyboard() = 0;
};

/// Makes what shows of the bars.
class BarPanels {
  public:
    virtual ~BarPanels() = default;
    /// The panel shows what the interaction says, tells it what the user does, and goes before it.
    virtual std::unique_ptr<BarPanel> makePanel(const Screen& screen, BarInteraction& bar) = 0;
    virtual BarPopups& popups() = 0;
};

} // namespace larkspan
