#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "adapters/x11/windows/WindowMirror.h"

namespace larkspan::x11 {

/// What a bar may ask about windows: requests to the window manager, which decides. Without one the
/// windows are changed directly where that is possible. Nothing is awaited. Any thread.
class WindowRequests {
  public:
    WindowRequests(X11Connection& connection, WindowMirror& mirror)
        : connection_(connection)
        , mirror_(mirror) {}

    /// Shows the window wherever it is, in front and with the keyboard's focus.
    void activate(WindowId window);
    /// In front of the others, without the focus.
    void raise(WindowId window);
    void iconify(WindowId window);
    /// Shows an iconified window, without the focus as far as the window manager keeps to that.
    void restore(WindowId window);
    /// False without a window manager: only it knows of desktops. Main thread only.
    bool moveToDesktop(WindowId window, std::uint32_t desktop);
    /// As the close button does: the client may ask its user first.
    void close(WindowId window);
    /// Ends the client's connection to the X server, and with it all its windows.
    void kill(WindowId window);

  private:
    void stackAbove(WindowId window);

    X11Connection& connection_;
    WindowMirror& mirror_;
};

} // namespace larkspan::x11
