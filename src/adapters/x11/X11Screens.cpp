#include "adapters/x11/X11Screens.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include <xcb/randr.h>

namespace larkspan::x11 {

namespace {

// The X server's number for the atom PRIMARY; only the display of a server without RandR has it.
constexpr DisplayId onlyDisplay = 1;
constexpr double pointsPerInch = 96;

Rect rectOf(const xcb_randr_monitor_info_t& monitor) {
    return {double(monitor.x), double(monitor.y), double(monitor.width), double(monitor.height)};
}

// Whether the strut's range along its edge overlaps the monitor's side.
bool meets(Strut::Range range, double start, double end) {
    return double(range.start) < end && double(range.end) >= start;
}

} // namespace

X11Screens::X11Screens(X11Connection& connection, const WindowMirror& mirror, double scale)
    : connection_(connection)
    , mirror_(mirror)
    , scale_(scale)
    , subscription_(connection.events.subscribe(
          [this](const xcb_generic_event_t& event) { handle(event); })) {
    auto* raw = connection_.raw();
    const auto* extension = xcb_get_extension_data(raw, &xcb_randr_id);
    if (extension && extension->present) {
        const auto version =
            connection_.reply(xcb_randr_query_version_reply, xcb_randr_query_version(raw, 1, 5));
        hasRandr_ = version && (version->major_version > 1 || version->minor_version >= 5);
        firstRandrEvent_ = extension->first_event;
    }
    if (hasRandr_)
        xcb_randr_select_input(raw, connection_.root(),
                               XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE |
                                   XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                                   XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    update();
}

void X11Screens::handle(const xcb_generic_event_t& event) {
    const int type = event.response_type & 0x7f;
    // Monitors that a user adds or removes are not hardware: RandR sends no event for them.
    if (type == XCB_CONFIGURE_NOTIFY &&
        reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == connection_.root())
        areMonitorsStale_ = true;
    if (hasRandr_ && (type == firstRandrEvent_ + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
                      type == firstRandrEvent_ + XCB_RANDR_NOTIFY))
        areMonitorsStale_ = true;
}

void X11Screens::setStrip(double height) {
    strip_ = height;
}

bool X11Screens::update() {
    if (areMonitorsStale_ && connection_.isAlive()) readMonitors();
    std::vector<Screen> screens;
    for (const auto& monitor : monitors_)
        screens.push_back(screenOf(monitor));
    if (screens == screens_) return false;
    screens_ = std::move(screens);
    return true;
}

void X11Screens::readMonitors() {
    areMonitorsStale_ = false;
    const auto root = connection_.reply(xcb_get_geometry_reply,
                                        xcb_get_geometry(connection_.raw(), connection_.root()));
    if (root) root_ = {double(root->width), double(root->height)};
    monitors_ = hasRandr_ ? askMonitors() : std::vector<Monitor>();
    if (monitors_.empty())
        monitors_.push_back({onlyDisplay, "screen", {0, 0, root_.width, root_.height}});
}

std::vector<X11Screens::Monitor> X11Screens::askMonitors() {
    auto* raw = connection_.raw();
    const auto reply = connection_.reply(xcb_randr_get_monitors_reply,
                                         xcb_randr_get_monitors(raw, connection_.root(), 1));
    if (!reply) return {};
    std::vector<Monitor> monitors;
    for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem > 0;
         xcb_randr_monitor_info_next(&it)) {
        const Monitor monitor{it.data->name, {}, rectOf(*it.data)};
        // Of mirrored monitors, only the first is listed.
        const bool isMirror = std::any_of(monitors.begin(), monitors.end(), [&](const auto& other) {
            return other.area == monitor.area;
        });
        if (isMirror || monitor.area.isEmpty()) continue;
        monitors.insert(it.data->primary ? monitors.begin() : monitors.end(), monitor);
    }
    std::vector<xcb_get_atom_name_cookie_t> cookies;
    for (const auto& monitor : monitors)
        cookies.push_back(xcb_get_atom_name(raw, monitor.display));
    for (std::size_t i = 0; i < monitors.size(); ++i) {
        const auto name = connection_.reply(xcb_get_atom_name_reply, cookies[i]);
        if (name)
            monitors[i].name.assign(xcb_get_atom_name_name(name.get()),
                                    std::size_t(xcb_get_atom_name_name_length(name.get())));
    }
    return monitors;
}

Screen X11Screens::screenOf(const Monitor& monitor) const {
    const double mainHeight = monitors_.front().area.height;
    const auto toScreen = [&](const Rect& pixels) {
        return Rect{pixels.x / scale_, (mainHeight - pixels.maxY()) / scale_, pixels.width / scale_,
                    pixels.height / scale_};
    };
    Screen screen;
    screen.display = monitor.display;
    screen.displayIdentifier = monitor.name;
    screen.scale = scale_;
    screen.bounds = {monitor.area.x / scale_, monitor.area.y / scale_, monitor.area.width / scale_,
                     monitor.area.height / scale_};
    screen.frame = toScreen(monitor.area);
    screen.visibleFrame = toScreen(usableArea(monitor));
    const double missing = screen.frame.y + strip_ - screen.visibleFrame.y;
    if (missing > 0) {
        screen.visibleFrame.y += missing;
        screen.visibleFrame.height = std::max(0.0, screen.visibleFrame.height - missing);
    }
    return screen;
}

// Struts are measured from the edges of the root window, which may be far from the monitor's own.
Rect X11Screens::usableArea(const Monitor& monitor) const {
    const Rect& area = monitor.area;
    double left = area.minX(), right = area.maxX(), top = area.minY(), bottom = area.maxY();
    for (const auto& window : mirror_.windows()) {
        const auto& strut = window->strut;
        const auto& depth = strut.depth;
        if (depth == Edges{} || window->isMinimized) continue;
        if (depth.left && depth.left < area.maxX() && meets(strut.left, area.minY(), area.maxY()))
            left = std::max(left, double(depth.left));
        if (depth.right && root_.width - depth.right > area.minX() &&
            meets(strut.right, area.minY(), area.maxY()))
            right = std::min(right, root_.width - depth.right);
        if (depth.top && depth.top < area.maxY() && meets(strut.top, area.minX(), area.maxX()))
            top = std::max(top, double(depth.top));
        if (depth.bottom && root_.height - depth.bottom > area.minY() &&
            meets(strut.bottom, area.minX(), area.maxX()))
            bottom = std::min(bottom, root_.height - depth.bottom);
    }
    return {left, top, std::max(0.0, right - left), std::max(0.0, bottom - top)};
}

// A line such as "Xft.dpi:        120" in the root window's resources.
double X11Screens::readScale(X11Connection& connection) {
    constexpr std::uint32_t longest = 1u << 14;
    const auto reply =
        connection.reply(xcb_get_property_reply,
                         xcb_get_property(connection.raw(), 0, connection.root(),
                                          XCB_ATOM_RESOURCE_MANAGER, XCB_ATOM_STRING, 0, longest));
    if (!reply || reply->format != 8) return 1;
    const std::string_view resources(static_cast<const char*>(xcb_get_property_value(reply.get())),
                                     reply->value_len);
    constexpr std::string_view name = "Xft.dpi:";
    const auto at = resources.find(name);
    if (at == std::string_view::npos || (at > 0 && resources[at - 1] != '\n')) return 1;
    auto value = resources.substr(at + name.size());
    value.remove_prefix(std::min(value.find_first_not_of(" \t"), value.size()));
    double dotsPerInch = 0;
    std::from_chars(value.data(), value.data() + value.size(), dotsPerInch);
    return dotsPerInch >= pointsPerInch / 2 && dotsPerInch <= pointsPerInch * 8
               ? dotsPerInch / pointsPerInch
               : 1;
}

} // namespace larkspan::x11
