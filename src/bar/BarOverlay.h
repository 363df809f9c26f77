#pragma once

#include "bar/BarPopups.h"
#include "bar/TileActions.h"
#include "model/WindowRefresh.h"
#include "platform/Signal.h"

#include <functional>
#include <string>

namespace larkspan {

class BarInteraction;

/// What all bars have in common: the one label and the one menu above them, and on which of them
/// the user is. The tiles keep their sections while the pointer or the keyboard is on a bar or the
/// menu is open. Main thread only.
class BarOverlay {
  public:
    /// `barMenu` makes the menu of the bars themselves.
    BarOverlay(TileActions& actions, WindowRefresh& refresh, BarPopups& popups,
               std::function<Menu()> barMenu);
    ~BarOverlay();
    BarOverlay(const BarOverlay&) = delete;
    BarOverlay& operator=(const BarOverlay&) = delete;

    // What a bar tells. Bars are only compared, never called.

    void setPointer(const BarInteraction& bar, bool isOnBar);
    void setKeyboard(const BarInteraction& bar, bool hasKeyboard);
    /// The bar goes, and what it has here with it.
    void leave(const BarInteraction& bar);

    // Anchors and frames are in screen coordinates.

    /// Without effect while the menu is open.
    void showLabel(const BarInteraction& bar, const std::string& text, const Rect& anchor,
                   const Screen& screen);
    void hideLabel(const BarInteraction& bar);
    /// Takes the label away, which has been read.
    void click(const BarTile& tile, const Rect& frame, ClickModifiers modifiers);
    /// The menu opens when the app has answered, or a tenth of a second later.
    void openTileMenu(const BarInteraction& bar, const BarTile& tile, const Rect& frame,
                      const Screen& screen);
    void openBarMenu(const BarInteraction& bar, const Rect& anchor, const Screen& screen);
    void closeMenu();
    /// As a click on the line of the open menu does. False when there is no such line to choose.
    bool chooseLine(std::string_view title);

    bool hasLabelOf(const BarInteraction& bar) const { return labelBar_ == &bar; }
    /// Of that bar; empty while none shows.
    std::string labelOf(const BarInteraction& bar) const;
    bool isMenuOpen() const { return isMenuOpen_; }
    /// The lines of the open menu.
    const Menu& menu() const { return menu_; }

    /// A line of the menu was chosen.
    Signal<> menuChosen;

  private:
    void openMenu(const BarInteraction& bar, const Menu& menu, const Rect& anchor,
                  const Screen& screen);
    void menuClosed();
    void hideAnyLabel();
    void hold();

    TileActions& actions_;
    WindowRefresh& refresh_;
    BarPopups& popups_;
    std::function<Menu()> barMenu_;
    // Each is nullptr for none.
    const BarInteraction* pointerBar_ = nullptr;
    const BarInteraction* keyboardBar_ = nullptr;
    const BarInteraction* labelBar_ = nullptr;
    const BarInteraction* menuBar_ = nullptr;
    std::string label_;
    Rect labelAnchor_;
    Menu menu_;
    bool isMenuOpen_ = false;
    /// Keeps the menu of a tile true while it is open.
    Handle tileMenu_;
};

} // namespace larkspan
