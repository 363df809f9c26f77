#include "XDisplay.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stdexcept>

#include <poll.h>
#include <xcb/xtest.h>

namespace larkspan::e2e {

namespace {

using x11::owned;

bool isNear(std::uint32_t left, std::uint32_t right) {
    constexpr int tolerance = 24;
    for (const int shift : {0, 8, 16}) {
        const auto difference =
            static_cast<int>((left >> shift) & 255U) - static_cast<int>((right >> shift) & 255U);
        if (std::abs(difference) > tolerance) return false;
    }
    return true;
}

} // namespace

XDisplay::XDisplay(const std::string& name)
    : client_(name)
    , connection_(client_.raw())
    , screen_(xcb_setup_roots_iterator(xcb_get_setup(connection_)).data) {
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_, screen_->root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(connection_);
}

void XDisplay::fakeInput(int type, int detail) {
    xcb_test_fake_input(connection_, static_cast<std::uint8_t>(type),
                        static_cast<std::uint8_t>(detail), 0, screen_->root, 0, 0, 0);
    xcb_flush(connection_);
}

void XDisplay::tapKey(std::uint32_t symbol) {
    holdKey(symbol, true);
    holdKey(symbol, false);
}

void XDisplay::holdKey(std::uint32_t symbol, bool isHeld) {
    fakeInput(isHeld ? XCB_KEY_PRESS : XCB_KEY_RELEASE, keyOf(symbol));
}

std::uint8_t XDisplay::keyOf(std::uint32_t symbol) {
    const auto* setup = xcb_get_setup(connection_);
    const auto first = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first + 1);
    const auto cookie = xcb_get_keyboard_mapping(connection_, first, count);
    const auto map = owned(xcb_get_keyboard_mapping_reply(connection_, cookie, nullptr));
    if (!map) throw std::runtime_error("no keyboard mapping");
    const auto* symbols = xcb_get_keyboard_mapping_keysyms(map.get());
    for (int i = 0; i < count; ++i)
        if (symbols[i * map->keysyms_per_keycode] == symbol)
            return static_cast<std::uint8_t>(first + i);
    throw std::runtime_error("no key for a symbol");
}

bool XDisplay::grabKeyboard() {
    const auto cookie = xcb_grab_keyboard(connection_, 0, screen_->root, XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const auto reply = owned(xcb_grab_keyboard_reply(connection_, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void XDisplay::letKeyboardGo() {
    xcb_ungrab_keyboard(connection_, XCB_CURRENT_TIME);
    xcb_flush(connection_);
}

Picture XDisplay::picture(const Area& area) {
    const auto cookie = xcb_get_image(
        connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root, static_cast<std::int16_t>(area.x),
        static_cast<std::int16_t>(area.y), static_cast<std::uint16_t>(area.width),
        static_cast<std::uint16_t>(area.height), ~0U);
    const auto reply = owned(xcb_get_image_reply(connection_, cookie, nullptr));
    if (!reply) return {};
    const auto* first =
        reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(reply.get())); // 24 bits in 32
    Picture picture{area.width, {first, first + xcb_get_image_data_length(reply.get()) / 4}};
    for (auto& pixel : picture.pixels)
        pixel &= 0xFFFFFFU;
    return picture;
}

std::optional<Area> XDisplay::find(std::uint32_t color, const Area& area) {
    const auto seen = picture(area);
    int left = area.width, right = -1, top = area.height, bottom = -1, count = 0;
    for (std::size_t index = 0; index < seen.pixels.size(); ++index) {
        if (!isNear(seen.pixels[index], color)) continue;
        const int x = static_cast<int>(index) % seen.width;
        const int y = static_cast<int>(index) / seen.width;
        left = std::min(left, x);
        right = std::max(right, x);
        top = std::min(top, y);
        bottom = std::max(bottom, y);
        ++count;
    }
    if (count < 30) return std::nullopt;
    return Area{area.x + left, area.y + top, right - left + 1, bottom - top + 1};
}

std::vector<xcb_window_t> XDisplay::windows() {
    return client_.numbers(screen_->root, "_NET_CLIENT_LIST");
}

xcb_window_t XDisplay::activeWindow() {
    const auto active = client_.numbers(screen_->root, "_NET_ACTIVE_WINDOW");
    return active.empty() ? xcb_window_t{XCB_NONE} : active.front();
}

std::optional<xcb_window_t> XDisplay::windowOfClass(const std::string& windowClass) {
    for (const auto window : windows())
        if (classOf(window) == windowClass) return window;
    return std::nullopt;
}

bool XDisplay::isIconified(xcb_window_t window) {
    const auto states = client_.numbers(window, "_NET_WM_STATE");
    return std::ranges::find(states, client_.atom("_NET_WM_STATE_HIDDEN")) != states.end();
}

std::optional<std::uint32_t> XDisplay::desktopOf(xcb_window_t window) {
    const auto desktop = client_.numbers(window, "_NET_WM_DESKTOP");
    if (desktop.empty() || desktop[0] == 0xFFFFFFFF) return std::nullopt;
    return desktop[0];
}

Area XDisplay::workArea() {
    const auto area = client_.numbers(screen_->root, "_NET_WORKAREA");
    if (area.size() < 4) return {};
    return {static_cast<int>(area[0]), static_cast<int>(area[1]), static_cast<int>(area[2]),
            static_cast<int>(area[3])};
}

void XDisplay::close(xcb_window_t window) {
    client_.ask(window, "_NET_CLOSE_WINDOW", {0, 2});
}

void XDisplay::setFullScreen(xcb_window_t window, bool isFullScreen) {
    client_.ask(
        window, "_NET_WM_STATE",
        {static_cast<std::uint32_t>(isFullScreen), client_.atom("_NET_WM_STATE_FULLSCREEN"), 0, 2});
}

bool XDisplay::eventually(const std::function<bool()>& condition, double seconds) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    while (!condition()) {
        if (Clock::now() > end || xcb_connection_has_error(connection_) != 0) return false;
        waitForEvents(20);
    }
    return true;
}

void XDisplay::waitForEvents(int milliseconds) {
    pollfd readable{xcb_get_file_descriptor(connection_), POLLIN, 0};
    poll(&readable, 1, milliseconds);
    while (const auto event = owned(xcb_poll_for_event(connection_))) {
    }
}

} // namespace larkspan::e2e
