#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "platform/DesktopPicture.h"
#include "platform/Signal.h"

namespace larkspan::x11 {

/// The wallpaper that desktops set on the root window, and whether a compositor is running. Main
/// thread only.
class X11DesktopPicture : public DesktopPicture {
  public:
    /// `scale` is pixels per point.
    X11DesktopPicture(X11Connection& connection, double scale);

    bool isComposited() const override { return isComposited_; }
    std::optional<Bitmap> under(const Rect& rect) const override;
    Handle subscribe(std::function<void()> callback) override {
        return changed_.subscribe(std::move(callback));
    }

  private:
    struct Area {
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
    };

    void handle(const xcb_generic_event_t& event);
    void settle();
    void watchCompositor();
    void readCompositor();
    xcb_pixmap_t pixmap() const;
    std::optional<Bitmap> read(xcb_pixmap_t pixmap, const Area& area) const;

    X11Connection& connection_;
    double scale_;
    bool isComposited_ = false;
    bool isCompositorStale_ = false;
    bool hasChanged_ = false;
    /// The first number of the selection events; 0 without XFixes.
    std::uint8_t firstFixesEvent_ = 0;
    Signal<> changed_;
    Handle eventSubscription_;
    Handle settledSubscription_;
};

} // namespace larkspan::x11
