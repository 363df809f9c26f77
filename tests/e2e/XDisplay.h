#pragma once

#include "adapters/x11/TestClient.h"

#include <functional>

#include <xcb/xtest.h>

namespace larkspan::e2e {

/// In pixels from the screen's top left.
struct Area {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    int centerX() const { return x + width / 2; }
    int centerY() const { return y + height / 2; }
    bool operator==(const Area&) const = default;
};

struct Picture {
    int width = 0;
    /// 0xRRGGBB, row by row.
    std::vector<std::uint32_t> pixels;

    bool operator==(const Picture&) const = default;
};

/// What a user of the screen can see and do, through the X server only.
class XDisplay {
  public:
    explicit XDisplay(const std::string& name);

    int width() const { return screen_->width_in_pixels; }
    int height() const { return screen_->height_in_pixels; }

    void movePointer(int x, int y) {
        client_.movePointer(static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
    }
    void press(int button) { fakeInput(XCB_BUTTON_PRESS, button); }
    void release(int button) { fakeInput(XCB_BUTTON_RELEASE, button); }
    /// Presses and releases the key with that symbol, such as XK_Return.
    void tapKey(std::uint32_t symbol);
    void holdKey(std::uint32_t symbol, bool isHeld);
    /// Grabs the keyboard; false while another client has grabbed it.
    bool grabKeyboard();
    void letKeyboardGo();

    Picture picture(const Area& area);
    /// The bounds of the pixels with this colour in the area; absent for fewer than 30 pixels.
    std::optional<Area> find(std::uint32_t color, const Area& area);

    /// The managed windows, oldest first.
    std::vector<xcb_window_t> windows();
    xcb_window_t activeWindow();
    std::string classOf(xcb_window_t window) { return client_.classOf(window); }
    std::optional<xcb_window_t> windowOfClass(const std::string& windowClass);
    bool isIconified(xcb_window_t window);
    /// Counted from 0; absent for a window on no desktop or on all.
    std::optional<std::uint32_t> desktopOf(xcb_window_t window);
    Area workArea();

    /// Asks the window manager, as the window's own button does.
    void minimize(xcb_window_t window) { client_.iconify(window); }
    void close(xcb_window_t window);
    void setFullScreen(xcb_window_t window, bool isFullScreen);

    /// Checks the condition now and after every change on the screen, until it is true or `seconds`
    /// have passed.
    bool eventually(const std::function<bool()>& condition, double seconds = 10);

  private:
    std::uint8_t keyOf(std::uint32_t symbol);
    void fakeInput(int type, int detail);
    void waitForEvents(int milliseconds);

    x11::TestClient client_;
    xcb_connection_t* connection_;
    xcb_screen_t* screen_;
};

} // namespace larkspan::e2e
