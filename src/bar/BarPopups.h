#pragma once

#include "platform/Geometry.h"
#include "platform/Menu.h"
#include "platform/Screens.h"

#include <functional>
#include <string>

namespace larkspan {

/// The label and the menu above the bars, one of each for all of them. The views implement it.
/// Anchors are in screen coordinates; what shows stands above them, inside the screen. Main thread
/// only.
class BarPopups {
  public:
    virtual ~BarPopups() = default;

    /// Shows the label, or moves the one that shows.
    virtual void showLabel(const std::string& text, const Rect& anchor, const Screen& screen) = 0;
    virtual void hideLabel() = 0;

    /// Opens the menu. One that is open above the same place takes the new lines. `lightsFirst`: it
    /// is used with the keyboard, so its first line is chosen to begin with.
    virtual void openMenu(const Menu& menu, const Rect& anchor, const Screen& screen,
                          bool lightsFirst) = 0;
    virtual void closeMenu() = 0;

    /// A line was chosen. Told before the menu closes and before the line's action is called.
    std::function<void()> onMenuChosen;
    /// The menu has closed, for whatever reason.
    std::function<void()> onMenuClosed;
};

} // namespace larkspan
