#include "adapters/x11/panels/X11PanelDressing.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>
#include <span>

#include <xcb/shape.h>

namespace larkspan::x11 {

namespace {

constexpr std::size_t longestHints = 9;

void setProperty(xcb_connection_t* connection, xcb_window_t window, xcb_atom_t property,
                 xcb_atom_t type, std::span<const std::uint32_t> numbers) {
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<std::uint32_t>(numbers.size()), numbers.data());
}

std::vector<std::uint32_t> property(xcb_connection_t* connection, xcb_window_t window,
                                    xcb_atom_t name, std::uint32_t length) {
    const auto cookie =
        xcb_get_property(connection, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, length);
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->format != 32) return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

} // namespace

xcb_connection_t* X11PanelDressing::windowConnection() const {
    if (const auto* application = dynamic_cast<QGuiApplication*>(QCoreApplication::instance()))
        if (const auto* x11 = application->nativeInterface<QNativeInterface::QX11Application>())
            return x11->connection();
    return connection_.raw();
}

void X11PanelDressing::dress(NativeWindow native) {
    const auto window = static_cast<xcb_window_t>(native);
    const auto& atoms = connection_.atoms();
    auto* connection = windowConnection();

    const std::uint32_t type[] = {atoms.typeDock};
    setProperty(connection, window, atoms.netWmWindowType, XCB_ATOM_ATOM, type);
    const std::uint32_t states[] = {atoms.stateSticky, atoms.stateSkipTaskbar, atoms.stateSkipPager,
                                    atoms.stateAbove};
    setProperty(connection, window, atoms.netWmState, XCB_ATOM_ATOM, states);
    const std::uint32_t desktop[] = {everyDesktop};
    setProperty(connection, window, atoms.netWmDesktop, XCB_ATOM_CARDINAL, desktop);

    // The window neither gets the focus by a click nor offers to take it.
    auto hints = property(connection, window, XCB_ATOM_WM_HINTS, longestHints);
    hints.resize(longestHints);
    hints[0] |= inputHint;
    hints[1] = 0;
    setProperty(connection, window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, hints);
    auto protocols = property(connection, window, atoms.wmProtocols, 32);
    if (std::erase(protocols, atoms.wmTakeFocus) > 0)
        setProperty(connection, window, atoms.wmProtocols, XCB_ATOM_ATOM, protocols);
    xcb_flush(connection);
}

bool X11PanelDressing::isBottomOuter(const Screen& screen) const {
    return std::none_of(screens_.begin(), screens_.end(), [&](const Screen& other) {
        return other.bounds.minY() >= screen.bounds.maxY() &&
               other.bounds.minX() < screen.bounds.maxX() &&
               other.bounds.maxX() > screen.bounds.minX();
    });
}

// A strut is measured from the root window's edge, which may be below the monitor's own.
void X11PanelDressing::reserveStrip(NativeWindow window, const Screen& screen, double height) {
    Strut strut;
    if (height > 0 && isBottomOuter(screen)) {
        auto* connection = windowConnection();
        const Reply<xcb_get_geometry_reply_t> root(xcb_get_geometry_reply(
            connection, xcb_get_geometry(connection, connection_.root()), nullptr));
        const double rootHeight = root ? root->height : screen.bounds.maxY() * screen.scale;
        const double top = (screen.bounds.maxY() - height) * screen.scale;
        strut.depth.bottom = static_cast<std::uint32_t>(std::max(0.0, std::ceil(rootHeight - top)));
        strut.bottom.start =
            static_cast<std::uint32_t>(std::max(0.0, screen.bounds.minX() * screen.scale));
        strut.bottom.end = static_cast<std::uint32_t>(screen.bounds.maxX() * screen.scale) - 1;
    }
    setStrut(window, strut);
}

void X11PanelDressing::setStrut(NativeWindow native, const Strut& strut) {
    const auto window = static_cast<xcb_window_t>(native);
    const auto& atoms = connection_.atoms();
    auto* connection = windowConnection();
    if (strut.depth == Edges{}) {
        xcb_delete_property(connection, window, atoms.netWmStrutPartial);
        xcb_delete_property(connection, window, atoms.netWmStrut);
    } else {
        const auto bottom = strut.depth.bottom;
        const std::uint32_t partial[] = {
            0, 0, 0, bottom, 0, 0, 0, 0, 0, 0, strut.bottom.start, strut.bottom.end};
        setProperty(connection, window, atoms.netWmStrutPartial, XCB_ATOM_CARDINAL, partial);
        setProperty(connection, window, atoms.netWmStrut, XCB_ATOM_CARDINAL,
                    std::span(partial).first(4));
    }
    xcb_flush(connection);
}

void X11PanelDressing::setInputArea(NativeWindow window, const Rect& area) {
    const double scale = screens_.empty() ? 1 : screens_.front().scale;
    const auto left = std::floor(area.minX() * scale);
    const auto top = std::floor(area.minY() * scale);
    const xcb_rectangle_t rectangle{
        static_cast<std::int16_t>(left), static_cast<std::int16_t>(top),
        static_cast<std::uint16_t>(std::max(0.0, std::ceil(area.maxX() * scale) - left)),
        static_cast<std::uint16_t>(std::max(0.0, std::ceil(area.maxY() * scale) - top))};
    auto* connection = windowConnection();
    xcb_shape_rectangles(connection, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
                         XCB_CLIP_ORDERING_UNSORTED, static_cast<xcb_window_t>(window), 0, 0, 1,
                         &rectangle);
    xcb_flush(connection);
}

} // namespace larkspan::x11
