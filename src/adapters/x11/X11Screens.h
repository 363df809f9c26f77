#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "adapters/x11/windows/WindowMirror.h"
#include "platform/Screens.h"
#include "platform/Signal.h"

#include <vector>

namespace larkspan::x11 {

/// The RandR monitors, the primary one first; without RandR, the root window is the only screen. A
/// display's identifier is the X server's number for the monitor's name, so it stays the same after
/// unplugging. Display coordinates are those of the root window divided by the scale, even if the
/// primary monitor is not at its top left. Screen coordinates are flipped at the primary monitor's
/// height.
class X11Screens : public Screens {
  public:
    X11Screens(X11Connection& connection, const WindowMirror& mirror, double scale);

    std::vector<Screen> screens() const override { return screens_; }
    Handle subscribe(std::function<void()> callback) override {
        return changed_.subscribe(std::move(callback));
    }

    /// The points at the bottom of each screen that windows leave to the bar; 0 for none.
    void setStrip(double height);
    /// Computes the screens again from the monitors and other programs' panels; returns whether
    /// they changed.
    bool update();
    void announce() { changed_.emit(); }

    /// Pixels per point, from the desktop's `Xft.dpi`; the same for all screens.
    static double readScale(X11Connection& connection);

  private:
    struct Monitor {
        DisplayId display = 0;
        std::string name;
        /// In pixels on the root window.
        Rect area;
    };

    void handle(const xcb_generic_event_t& event);
    void readMonitors();
    std::vector<Monitor> askMonitors();
    Screen screenOf(const Monitor& monitor) const;
    Rect usableArea(const Monitor& monitor) const;

    X11Connection& connection_;
    const WindowMirror& mirror_;
    double scale_;
    bool hasRandr_ = false;
    std::uint8_t firstRandrEvent_ = 0;
    bool areMonitorsStale_ = true;
    Size root_;
    double strip_ = 0;
    std::vector<Monitor> monitors_;
    std::vector<Screen> screens_;
    Signal<> changed_;
    Handle subscription_;
};

} // namespace larkspan::x11
