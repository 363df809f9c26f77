#pragma once

#include "platform/Geometry.h"
#include "platform/Identifiers.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace larkspan::x11 {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

/// A reply of the X server.
template <typename Reply>
std::unique_ptr<Reply, Free> owned(Reply* reply) {
    return std::unique_ptr<Reply, Free>(reply);
}

struct TestWindow {
    std::string title = "Untitled";
    /// Empty means that the property is not set.
    std::string instance = "client";
    std::string className = "Client";
    std::string type;
    std::optional<std::uint32_t> pid;
    xcb_window_t transientFor = 0;
    bool isOverrideRedirect = false;
    /// Absent means that the hint is not set; the window then gets the focus.
    std::optional<bool> takesKeyboard;
    /// Whether it supports WM_DELETE_WINDOW; a window manager kills clients that do not.
    bool isAskedToClose = false;
    /// Whether it supports _NET_WM_PING; `replyToPings` replies.
    bool supportsPings = false;
    /// The requested position, which the window manager may ignore.
    int x = 40;
    int y = 40;
    int width = 300;
    int height = 200;
};

/// A program with windows, as the X server sees it. Its windows end with it.
class TestClient {
  public:
    /// The value of _NET_WM_DESKTOP for a window on all desktops.
    static constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;

    explicit TestClient(const std::string& display);
    ~TestClient();
    TestClient(const TestClient&) = delete;
    TestClient& operator=(const TestClient&) = delete;

    WindowId open(const TestWindow& window);
    void destroy(WindowId window);
    void map(WindowId window);
    void withdraw(WindowId window);
    void move(WindowId window, int x, int y);
    void resize(WindowId window, int width, int height);
    void iconify(WindowId window);

    xcb_atom_t atom(const std::string& name);
    xcb_window_t root() const { return screen_->root; }
    xcb_connection_t* raw() const { return connection_; }
    void setText(WindowId window, const std::string& property, const std::string& type,
                 const std::string& bytes);
    void setNumbers(WindowId window, const std::string& property, const std::string& type,
                    const std::vector<std::uint32_t>& numbers);
    std::vector<std::uint32_t> numbers(WindowId window, const std::string& property);
    /// A message to the window manager about a window.
    void ask(WindowId window, const std::string& message, const std::vector<std::uint32_t>& data);
    /// Makes a part of the screen a monitor, as a user may; replaces one with the same name.
    void setMonitor(const std::string& name, const Rect& area);
    void deleteMonitor(const std::string& name);
    bool isViewable(WindowId window);
    /// The class in WM_CLASS; empty if there is none.
    std::string classOf(WindowId window);
    /// The window without its frame, on the root window; empty if it is gone.
    Rect areaOf(WindowId window);
    /// The input region of the window, in its own pixels; only for a single rectangle.
    Rect inputArea(WindowId window);
    /// The windows that the window manager asked to close since the last call.
    std::vector<WindowId> takeCloseRequests();
    /// Replies to every ping since the last call, as a program does that handles its events.
    /// Returns their number.
    int replyToPings();
    /// False once the window manager has killed the client.
    bool isAlive() const { return xcb_connection_has_error(connection_) == 0; }
    /// Moves the pointer to a position on the root window.
    void movePointer(std::int16_t x, std::int16_t y);
    /// Returns when the X server has processed everything sent so far.
    void sync();

  private:
    /// The client messages of that protocol since the last call; other events are dropped.
    std::vector<xcb_client_message_event_t> takeMessages(const std::string& protocol);
    template <typename Event>
    void sendToRoot(const Event& event);

    xcb_connection_t* connection_;
    xcb_screen_t* screen_;
};

} // namespace larkspan::x11
