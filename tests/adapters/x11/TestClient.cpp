#include "adapters/x11/TestClient.h"

#include <stdexcept>

#include <sys/uio.h>
#include <xcb/randr.h>
#include <xcb/shape.h>
#include <xcb/xcbext.h>
#include <xcb/xtest.h>

namespace larkspan::x11 {

template <typename Event>
void TestClient::sendToRoot(const Event& event) {
    xcb_send_event(connection_, 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(connection_);
}

TestClient::TestClient(const std::string& display)
    : connection_(xcb_connect(display.c_str(), nullptr)) {
    if (xcb_connection_has_error(connection_)) throw std::runtime_error("no display");
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
}

TestClient::~TestClient() {
    xcb_disconnect(connection_);
}

WindowId TestClient::open(const TestWindow& window) {
    const auto id = xcb_generate_id(connection_);
    const std::uint32_t redirect = window.isOverrideRedirect;
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, id, root(),
                      static_cast<std::int16_t>(window.x), static_cast<std::int16_t>(window.y),
                      static_cast<std::uint16_t>(window.width),
                      static_cast<std::uint16_t>(window.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, &redirect);
    if (!window.className.empty())
        setText(id, "WM_CLASS", "STRING",
                window.instance + std::string(1, '\0') + window.className + std::string(1, '\0'));
    if (!window.title.empty()) setText(id, "_NET_WM_NAME", "UTF8_STRING", window.title);
    if (!window.type.empty())
        setNumbers(id, "_NET_WM_WINDOW_TYPE", "ATOM", {atom("_NET_WM_WINDOW_TYPE_" + window.type)});
    if (window.pid) setNumbers(id, "_NET_WM_PID", "CARDINAL", {*window.pid});
    if (window.transientFor) setNumbers(id, "WM_TRANSIENT_FOR", "WINDOW", {window.transientFor});
    if (window.takesKeyboard) setNumbers(id, "WM_HINTS", "WM_HINTS", {1, *window.takesKeyboard});
    std::vector<std::uint32_t> protocols;
    if (window.isAskedToClose) protocols.push_back(atom("WM_DELETE_WINDOW"));
    if (window.supportsPings) protocols.push_back(atom("_NET_WM_PING"));
    if (!protocols.empty()) setNumbers(id, "WM_PROTOCOLS", "ATOM", protocols);
    map(id);
    return id;
}

void TestClient::destroy(WindowId window) {
    xcb_destroy_window(connection_, window);
    xcb_flush(connection_);
}

void TestClient::map(WindowId window) {
    xcb_map_window(connection_, window);
    xcb_flush(connection_);
}

// The window manager may take the server's own event for the effect of its reparenting, but not the
// synthetic one.
void TestClient::withdraw(WindowId window) {
    xcb_unmap_window(connection_, window);
    xcb_unmap_notify_event_t event{};
    event.response_type = XCB_UNMAP_NOTIFY;
    event.event = root();
    event.window = window;
    sendToRoot(event);
}

void TestClient::move(WindowId window, int x, int y) {
    const std::int32_t place[] = {x, y};
    xcb_configure_window(connection_, window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y, place);
    xcb_flush(connection_);
}

void TestClient::resize(WindowId window, int width, int height) {
    const std::int32_t size[] = {width, height};
    xcb_configure_window(connection_, window, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                         size);
    xcb_flush(connection_);
}

void TestClient::iconify(WindowId window) {
    ask(window, "WM_CHANGE_STATE", {3});
}

xcb_atom_t TestClient::atom(const std::string& name) {
    const auto cookie =
        xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = owned(xcb_intern_atom_reply(connection_, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

void TestClient::setText(WindowId window, const std::string& property, const std::string& type,
                         const std::string& bytes) {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom(property), atom(type), 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
    xcb_flush(connection_);
}

void TestClient::setNumbers(WindowId window, const std::string& property, const std::string& type,
                            const std::vector<std::uint32_t>& numbers) {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom(property), atom(type), 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
    xcb_flush(connection_);
}

std::vector<std::uint32_t> TestClient::numbers(WindowId window, const std::string& property) {
    const auto cookie = xcb_get_property(connection_, 0, window, atom(property),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, 1024);
    const auto reply = owned(xcb_get_property_reply(connection_, cookie, nullptr));
    if (!reply || reply->format != 32) return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

void TestClient::ask(WindowId window, const std::string& message,
                     const std::vector<std::uint32_t>& data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    for (std::size_t i = 0; i < data.size() && i < 5; ++i)
        event.data.data32[i] = data[i];
    sendToRoot(event);
}

void TestClient::setMonitor(const std::string& name, const Rect& area) {
    xcb_randr_monitor_info_t monitor{};
    monitor.name = atom(name);
    monitor.x = static_cast<std::int16_t>(area.x);
    monitor.y = static_cast<std::int16_t>(area.y);
    monitor.width = static_cast<std::uint16_t>(area.width);
    monitor.height = static_cast<std::uint16_t>(area.height);
    monitor.width_in_millimeters = monitor.width / 4;
    monitor.height_in_millimeters = monitor.height / 4;
    // Written out here, since libxcb's function for this request sends a wrong length.
    xcb_randr_set_monitor_request_t request{};
    request.window = root();
    iovec parts[4]{};
    parts[2] = {&request, sizeof request};
    parts[3] = {&monitor, sizeof monitor};
    const xcb_protocol_request_t protocol{2, &xcb_randr_id, XCB_RANDR_SET_MONITOR, 1};
    xcb_send_request(connection_, 0, parts + 2, &protocol);
    xcb_flush(connection_);
}

void TestClient::deleteMonitor(const std::string& name) {
    xcb_randr_delete_monitor(connection_, root(), atom(name));
    xcb_flush(connection_);
}

bool TestClient::isViewable(WindowId window) {
    const auto reply = owned(xcb_get_window_attributes_reply(
        connection_, xcb_get_window_attributes(connection_, window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::string TestClient::classOf(WindowId window) {
    const auto cookie =
        xcb_get_property(connection_, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 256);
    const auto reply = owned(xcb_get_property_reply(connection_, cookie, nullptr));
    if (!reply) return {};
    const std::string both(static_cast<const char*>(xcb_get_property_value(reply.get())),
                           static_cast<std::size_t>(xcb_get_property_value_length(reply.get())));
    const auto instanceEnd = both.find('\0');
    return instanceEnd == std::string::npos ? "" : both.substr(instanceEnd + 1).c_str();
}

Rect TestClient::areaOf(WindowId window) {
    const auto geometry =
        owned(xcb_get_geometry_reply(connection_, xcb_get_geometry(connection_, window), nullptr));
    const auto origin = owned(xcb_translate_coordinates_reply(
        connection_, xcb_translate_coordinates(connection_, window, root(), 0, 0), nullptr));
    if (!geometry || !origin) return {};
    return {double(origin->dst_x), double(origin->dst_y), double(geometry->width),
            double(geometry->height)};
}

Rect TestClient::inputArea(WindowId window) {
    const auto reply = owned(xcb_shape_get_rectangles_reply(
        connection_, xcb_shape_get_rectangles(connection_, window, XCB_SHAPE_SK_INPUT), nullptr));
    if (!reply || xcb_shape_get_rectangles_rectangles_length(reply.get()) != 1) return {};
    const auto& only = *xcb_shape_get_rectangles_rectangles(reply.get());
    return {double(only.x), double(only.y), double(only.width), double(only.height)};
}

std::vector<xcb_client_message_event_t> TestClient::takeMessages(const std::string& protocol) {
    const auto wanted = atom(protocol);
    std::vector<xcb_client_message_event_t> messages;
    while (const auto event = owned(xcb_poll_for_event(connection_))) {
        const auto& message = *reinterpret_cast<const xcb_client_message_event_t*>(event.get());
        if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE && message.data.data32[0] == wanted)
            messages.push_back(message);
    }
    return messages;
}

std::vector<WindowId> TestClient::takeCloseRequests() {
    std::vector<WindowId> windows;
    for (const auto& message : takeMessages("WM_DELETE_WINDOW"))
        windows.push_back(message.window);
    return windows;
}

int TestClient::replyToPings() {
    auto pings = takeMessages("_NET_WM_PING");
    for (auto& message : pings) {
        message.window = root();
        sendToRoot(message);
    }
    return static_cast<int>(pings.size());
}

void TestClient::movePointer(std::int16_t x, std::int16_t y) {
    xcb_test_fake_input(connection_, XCB_MOTION_NOTIFY, 0, 0, screen_->root, x, y, 0);
    sync();
}

void TestClient::sync() {
    owned(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

} // namespace larkspan::x11
