#include "adapters/x11/windows/WindowRequests.h"

namespace larkspan::x11 {

namespace {

// Window managers accept requests from a pager that they would refuse from an application.
constexpr std::uint32_t fromPager = 2;
constexpr std::uint32_t normalState = 1;

} // namespace

void WindowRequests::activate(WindowId window) {
    connection_.perform([this, window] {
        if (mirror_.hasWindowManager()) {
            connection_.sendToRoot(window, connection_.atoms().netActiveWindow,
                                   {fromPager, connection_.lastTime(), 0, 0, 0});
        } else {
            stackAbove(window);
            xcb_set_input_focus(connection_.raw(), XCB_INPUT_FOCUS_POINTER_ROOT, window,
                                XCB_CURRENT_TIME);
        }
        mirror_.noteActivated(window);
        connection_.dispatchSoon();
    });
}

void WindowRequests::raise(WindowId window) {
    connection_.perform([this, window] {
        const auto restack = connection_.atoms().netRestackWindow;
        if (!mirror_.hasWindowManager())
            stackAbove(window);
        else if (mirror_.isSupported(restack))
            connection_.sendToRoot(window, restack, {fromPager, 0, XCB_STACK_MODE_ABOVE, 0, 0});
    });
}

void WindowRequests::iconify(WindowId window) {
    connection_.perform([this, window] {
        if (mirror_.hasWindowManager())
            connection_.sendToRoot(window, connection_.atoms().wmChangeState,
                                   {iconicState, 0, 0, 0, 0});
    });
}

// Mapping an iconified window is the client's own way to restore it, and every window manager
// supports it. But a window manager may mark a window as iconified a moment before it unmaps it,
// and mapping it then has no effect. Those that support the message restore it in that case too.
void WindowRequests::restore(WindowId window) {
    connection_.perform([this, window] {
        xcb_map_window(connection_.raw(), window);
        if (mirror_.hasWindowManager())
            connection_.sendToRoot(window, connection_.atoms().wmChangeState,
                                   {normalState, 0, 0, 0, 0});
    });
}

bool WindowRequests::moveToDesktop(WindowId window, std::uint32_t desktop) {
    if (!mirror_.hasWindowManager()) return false;
    connection_.perform([this, window, desktop] {
        connection_.sendToRoot(window, connection_.atoms().netWmDesktop,
                               {desktop, fromPager, 0, 0, 0});
    });
    return true;
}

void WindowRequests::close(WindowId window) {
    connection_.perform([this, window] {
        const auto& atoms = connection_.atoms();
        if (mirror_.hasWindowManager())
            connection_.sendToRoot(window, atoms.netCloseWindow,
                                   {connection_.lastTime(), fromPager, 0, 0, 0});
        else
            connection_.sendToWindow(window, atoms.wmProtocols,
                                     {atoms.wmDeleteWindow, connection_.lastTime(), 0, 0, 0});
    });
}

void WindowRequests::kill(WindowId window) {
    connection_.perform([this, window] { xcb_kill_client(connection_.raw(), window); });
}

void WindowRequests::stackAbove(WindowId window) {
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(connection_.raw(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
}

} // namespace larkspan::x11
