#include "XDisplay.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <stdexcept>

#include <poll.h>
#include <xcb/xtest.h>

namespace larkspan::e2e {

namespace {

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

template <class Reply>
std::unique_ptr<Reply, Free> owned(Reply* reply) {
    return std::unique_ptr<Reply, Free>(reply);
}

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
    : connection_(xcb_connect(name.c_str(), nullptr)) {
    if (xcb_connection_has_error(connection_.get()) != 0)
        throw std::runtime_error("no X server at " + name);
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_.get(), screen_->root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(connection_.get());
}

void XDisplay::movePointer(int x, int y) {
    xcb_test_fake_input(connection_.get(), XCB_MOTION_NOTIFY, 0, 0, screen_->root,
                        static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
    xcb_flush(connection_.get());
}

void XDisplay::press(int button) {
    xcb_test_fake_input(connection_.get(), XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button), 0,
                        screen_->root, 0, 0, 0);
    xcb_flush(connection_.get());
}

void XDisplay::release(int button) {
    xcb_test_fake_input(connection_.get(), XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button), 0,
                        screen_->root, 0, 0, 0);
    xcb_flush(connection_.get());
}

void XDisplay::tapKey(std::uint32_t symbol) {
    holdKey(symbol, true);
    holdKey(symbol, false);
}

void XDisplay::holdKey(std::uint32_t symbol, bool isHeld) {
    const auto type = static_cast<std::uint8_t>(isHeld ? XCB_KEY_PRESS : XCB_KEY_RELEASE);
    xcb_test_fake_input(connection_.get(), type, keyOf(symbol), 0, screen_->root, 0, 0, 0);
    xcb_flush(connection_.get());
}

std::uint8_t XDisplay::keyOf(std::uint32_t symbol) {
    const auto* setup = xcb_get_setup(connection_.get());
    const auto first = setup->min_keycode;
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - first + 1);
    const auto cookie = xcb_get_keyboard_mapping(connection_.get(), first, count);
    const auto map = owned(xcb_get_keyboard_mapping_reply(connection_.get(), cookie, nullptr));
    if (!map) throw std::runtime_error("no keyboard mapping");
    const auto* symbols = xcb_get_keyboard_mapping_keysyms(map.get());
    for (int i = 0; i < count; ++i)
        if (symbols[i * map->keysyms_per_keycode] == symbol)
            return static_cast<std::uint8_t>(first + i);
    throw std::runtime_error("no key for a symbol");
}

bool XDisplay::grabKeyboard() {
    const auto cookie = xcb_grab_keyboard(connection_.get(), 0, screen_->root, XCB_CURRENT_TIME,
                                          XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const auto reply = owned(xcb_grab_keyboard_reply(connection_.get(), cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

void XDisplay::letKeyboardGo() {
    xcb_ungrab_keyboard(connection_.get(), XCB_CURRENT_TIME);
    xcb_flush(connection_.get());
}

Picture XDisplay::picture(const Area& area) {
    const auto cookie = xcb_get_image(
        connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root,
        static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
        static_cast<std::uint16_t>(area.width), static_cast<std::uint16_t>(area.height), ~0U);
    const auto reply = owned(xcb_get_image_reply(connection_.get(), cookie, nullptr));
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
    return values(screen_->root, "_NET_CLIENT_LIST");
}

xcb_window_t XDisplay::activeWindow() {
    const auto active = values(screen_->root, "_NET_ACTIVE_WINDOW");
    return active.empty() ? xcb_window_t{XCB_NONE} : active.front();
}

std::string XDisplay::classOf(xcb_window_t window) {
    const auto cookie =
        xcb_get_property(connection_.get(), 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 100);
    const auto reply = owned(xcb_get_property_reply(connection_.get(), cookie, nullptr));
    if (!reply) return {};
    const std::string both(static_cast<const char*>(xcb_get_property_value(reply.get())),
                           static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
    const auto instanceEnd = both.find('\0');
    return instanceEnd == std::string::npos ? std::string() : both.substr(instanceEnd + 1).c_str();
}

std::optional<xcb_window_t> XDisplay::windowOfClass(const std::string& windowClass) {
    for (const auto window : windows())
        if (classOf(window) == windowClass) return window;
    return std::nullopt;
}

bool XDisplay::isIconified(xcb_window_t window) {
    const auto states = values(window, "_NET_WM_STATE");
    return std::ranges::find(states, atom("_NET_WM_STATE_HIDDEN")) != states.end();
}

std::optional<std::uint32_t> XDisplay::desktopOf(xcb_window_t window) {
    const auto desktop = values(window, "_NET_WM_DESKTOP");
    if (desktop.empty() || desktop[0] == 0xFFFFFFFF) return std::nullopt;
    return desktop[0];
}

Area XDisplay::workArea() {
    const auto area = values(screen_->root, "_NET_WORKAREA");
    if (area.size() < 4) return {};
    return {static_cast<int>(area[0]), static_cast<int>(area[1]), static_cast<int>(area[2]),
            static_cast<int>(area[3])};
}

void XDisplay::minimize(xcb_window_t window) {
    constexpr std::uint32_t iconicState = 3;
    send(window, "WM_CHANGE_STATE", {iconicState});
}

void XDisplay::close(xcb_window_t window) {
    send(window, "_NET_CLOSE_WINDOW", {0, 2});
}

void XDisplay::setFullScreen(xcb_window_t window, bool isFullScreen) {
    send(window, "_NET_WM_STATE",
         {static_cast<std::uint32_t>(isFullScreen), atom("_NET_WM_STATE_FULLSCREEN"), 0, 2});
}

bool XDisplay::eventually(const std::function<bool()>& condition, double seconds) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    while (!condition()) {
        if (Clock::now() > end || xcb_connection_has_error(connection_.get()) != 0) return false;
        waitForEvents(20);
    }
    return true;
}

xcb_atom_t XDisplay::atom(const std::string& name) {
    const auto cookie = xcb_intern_atom(connection_.get(), 0,
                                        static_cast<std::uint16_t>(name.size()), name.c_str());
    const auto reply = owned(xcb_intern_atom_reply(connection_.get(), cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

std::vector<std::uint32_t> XDisplay::values(xcb_window_t window, const std::string& property) {
    const auto cookie =
        xcb_get_property(connection_.get(), 0, window, atom(property), XCB_ATOM_ANY, 0, 1024);
    const auto reply = owned(xcb_get_property_reply(connection_.get(), cookie, nullptr));
    if (!reply || reply->format != 32) return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

void XDisplay::send(xcb_window_t window, const std::string& type, std::vector<std::uint32_t> data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(type);
    std::ranges::copy(data, event.data.data32);
    xcb_send_event(connection_.get(), 0, screen_->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(connection_.get());
}

void XDisplay::waitForEvents(int milliseconds) {
    pollfd readable{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
    poll(&readable, 1, milliseconds);
    while (const auto event = owned(xcb_poll_for_event(connection_.get()))) {
    }
}

} // namespace larkspan::e2e
