#pragma once

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
    int width = 300;
    int height = 200;
};

/// A program with windows, as the X server sees one. Its windows end with it.
class TestClient {
  public:
    explicit TestClient(const std::string& display);
    ~TestClient();
    TestClient(const TestClient&) = delete;
    TestClient& operator=(const TestClient&) = delete;

    WindowId open(const TestWindow& window);
    void destroy(WindowId window);
    void map(WindowId window);
    void withdraw(WindowId window);
    void move(WindowId window, int x, int y);
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
    bool isViewable(WindowId window);

  private:
    xcb_connection_t* connection_;
    xcb_screen_t* screen_;
};

} // namespace larkspan::x11
