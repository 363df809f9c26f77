#pragma once

#include "platform/Geometry.h"
#include "platform/Identifiers.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <xcb/xcb.h>

namespace larkspan::x11 {

struct TestWindow {
    std::string title = "Untitled";
    /// Empty: the property is not set.
    std::string instance = "client";
    std::string className = "Client";
    std::string type;
    std::optional<std::uint32_t> pid;
    xcb_window_t transientFor = 0;
    bool isOverrideRedirect = false;
    /// Absent: it says nothing of it, and is given the keyboard.
    std::optional<bool> takesKeyboard;
    /// Takes part in WM_DELETE_WINDOW; a window manager ends a client that does not.
    bool isAskedToClose = false;
    /// Takes part in _NET_WM_PING; `answerPings` answers.
    bool takesPings = false;
    /// Where the client asks to be; the window manager may decide otherwise.
    int x = 40;
    int y = 40;
    int width = 300;
    int height = 200;
};

/// A program with windows, as the X server sees one. Its windows end with it.
class TestClient {
  public:
    /// What _NET_WM_DESKTOP says of a window on all of them.
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
    /// Makes a monitor of part of the screen, as a user may; with the name of one, in its place.
    void setMonitor(const std::string& name, const Rect& area);
    void deleteMonitor(const std::string& name);
    bool isViewable(WindowId window);
    /// The class of WM_CLASS; empty without one.
    std::string classOf(WindowId window);
    /// The window without its frame, on the root window; empty when it has gone.
    Rect areaOf(WindowId window);
    /// Where the pointer meets the window, in its own pixels; for one area only.
    Rect inputArea(WindowId window);
    /// The windows that the window manager has asked to close since the last call.
    std::vector<WindowId> takeCloseRequests();
    /// Answers every ping since the last call, as a program does that handles its events; answers
    /// how many there were.
    int answerPings();
    /// False once the window manager has ended the client.
    bool isAlive() const { return xcb_connection_has_error(connection_) == 0; }
    /// To a place on the root window, as a mouse moves it.
    void movePointer(std::int16_t x, std::int16_t y);
    /// Returns when the X server has taken everything sent so far.
    void sync();

  private:
    xcb_connection_t* connection_;
    xcb_screen_t* screen_;
};

} // namespace larkspan::x11
