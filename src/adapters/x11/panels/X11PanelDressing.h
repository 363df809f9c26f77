#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "adapters/x11/panels/TilePlaces.h"
#include "adapters/x11/windows/ClientWindow.h"
#include "platform/PanelDressing.h"

#include <utility>
#include <vector>

namespace larkspan::x11 {

/// Turns the toolkit's windows into docks: window type, no focus, all desktops, struts, input
/// region. Uses the toolkit's own connection if there is one, so that the requests reach the X
/// server after the window is created and before it is mapped.
class X11PanelDressing : public PanelDressing {
  public:
    explicit X11PanelDressing(X11Connection& connection)
        : connection_(connection)
        , places_(connection) {}

    void dress(NativeWindow window) override;
    void reserveStrip(NativeWindow window, const Screen& screen, double height) override;
    void setInputArea(NativeWindow window, const Rect& area) override;

    void setTiles(DisplayId display, const std::map<ProcessId, Rect>& tiles) override {
        places_.setTiles(display, tiles);
    }

    /// The strip can be reserved only if no other monitor continues below.
    void setDesktop(DesktopSnapshotRef desktop) {
        screens_ = desktop->screens;
        places_.setDesktop(std::move(desktop));
    }

  private:
    xcb_connection_t* windowConnection() const;
    bool isBottomOuter(const Screen& screen) const;
    void setStrut(NativeWindow window, const Strut& strut);

    X11Connection& connection_;
    std::vector<Screen> screens_;
    TilePlaces places_;
};

} // namespace larkspan::x11
