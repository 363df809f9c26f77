#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "adapters/x11/windows/WindowMirror.h"

namespace larkspan::x11 {

/// What a bar can request for windows. The requests go to the window manager, which decides;
/// without one, the windows are changed directly if possible. Does not wait. Any thread.
class WindowRequests {
  public:
    WindowRequests(X11Connection& connection, WindowMirror& mirror)
        : connection_(connection)
        , mirror_(mirror) {}

    /// Shows the window on whichever desktop it is, in front and with the focus.
    void activate(WindowId window);
    /// In front of the others, without the focus.
    void raise(WindowId window);
    void iconify(WindowId window);
    /// Shows an iconified window, without the focus if the window manager supports that.
    void restore(WindowId window);
    /// Returns false without a window manager, since there are no desktops then. Main thread only.
    bool moveToDesktop(WindowId window, std::uint32_t desktop);
    /// Like the close button: the client may ask its user first.
    void close(WindowId window);
    /// Closes the client's connection to the X server, and with it all its windows.
    void kill(WindowId window);

  private:
    void stackAbove(WindowId window);

    X11Connection& connection_;
    WindowMirror& mirror_;
};

} // namespace larkspan::x11
