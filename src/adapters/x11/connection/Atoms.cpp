#include "adapters/x11/connection/Atoms.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace larkspan::x11 {

namespace {

struct NamedAtom {
    xcb_atom_t Atoms::*member;
    std::string_view name;
};

constexpr NamedAtom namedAtoms[] = {
    {&Atoms::netSupported, "_NET_SUPPORTED"},
    {&Atoms::netSupportingWmCheck, "_NET_SUPPORTING_WM_CHECK"},
    {&Atoms::netClientList, "_NET_CLIENT_LIST"},
    {&Atoms::netClientListStacking, "_NET_CLIENT_LIST_STACKING"},
    {&Atoms::netActiveWindow, "_NET_ACTIVE_WINDOW"},
    {&Atoms::netCurrentDesktop, "_NET_CURRENT_DESKTOP"},
    {&Atoms::netNumberOfDesktops, "_NET_NUMBER_OF_DESKTOPS"},
    {&Atoms::netCloseWindow, "_NET_CLOSE_WINDOW"},
    {&Atoms::netRestackWindow, "_NET_RESTACK_WINDOW"},
    {&Atoms::netWmName, "_NET_WM_NAME"},
    {&Atoms::netWmPid, "_NET_WM_PID"},
    {&Atoms::netWmDesktop, "_NET_WM_DESKTOP"},
    {&Atoms::netWmIcon, "_NET_WM_ICON"},
    {&Atoms::netWmIconGeometry, "_NET_WM_ICON_GEOMETRY"},
    {&Atoms::netWmPing, "_NET_WM_PING"},
    {&Atoms::netWmWindowOpacity, "_NET_WM_WINDOW_OPACITY"},
    {&Atoms::netFrameExtents, "_NET_FRAME_EXTENTS"},
    {&Atoms::gtkFrameExtents, "_GTK_FRAME_EXTENTS"},
    {&Atoms::netWmStrut, "_NET_WM_STRUT"},
    {&Atoms::netWmStrutPartial, "_NET_WM_STRUT_PARTIAL"},
    {&Atoms::wmState, "WM_STATE"},
    {&Atoms::wmChangeState, "WM_CHANGE_STATE"},
    {&Atoms::wmProtocols, "WM_PROTOCOLS"},
    {&Atoms::wmDeleteWindow, "WM_DELETE_WINDOW"},
    {&Atoms::wmTakeFocus, "WM_TAKE_FOCUS"},
    {&Atoms::netWmState, "_NET_WM_STATE"},
    {&Atoms::stateHidden, "_NET_WM_STATE_HIDDEN"},
    {&Atoms::stateShaded, "_NET_WM_STATE_SHADED"},
    {&Atoms::stateFullscreen, "_NET_WM_STATE_FULLSCREEN"},
    {&Atoms::stateSkipTaskbar, "_NET_WM_STATE_SKIP_TASKBAR"},
    {&Atoms::stateSkipPager, "_NET_WM_STATE_SKIP_PAGER"},
    {&Atoms::stateSticky, "_NET_WM_STATE_STICKY"},
    {&Atoms::stateAbove, "_NET_WM_STATE_ABOVE"},
    {&Atoms::stateDemandsAttention, "_NET_WM_STATE_DEMANDS_ATTENTION"},
    {&Atoms::netWmWindowType, "_NET_WM_WINDOW_TYPE"},
    {&Atoms::typeNormal, "_NET_WM_WINDOW_TYPE_NORMAL"},
    {&Atoms::typeDialog, "_NET_WM_WINDOW_TYPE_DIALOG"},
    {&Atoms::typeUtility, "_NET_WM_WINDOW_TYPE_UTILITY"},
    {&Atoms::typeToolbar, "_NET_WM_WINDOW_TYPE_TOOLBAR"},
    {&Atoms::typeMenu, "_NET_WM_WINDOW_TYPE_MENU"},
    {&Atoms::typeSplash, "_NET_WM_WINDOW_TYPE_SPLASH"},
    {&Atoms::typeDock, "_NET_WM_WINDOW_TYPE_DOCK"},
    {&Atoms::typeDesktop, "_NET_WM_WINDOW_TYPE_DESKTOP"},
    {&Atoms::utf8String, "UTF8_STRING"},
    {&Atoms::compoundText, "COMPOUND_TEXT"},
    {&Atoms::rootPixmap, "_XROOTPMAP_ID"},
    {&Atoms::esetrootPixmap, "ESETROOT_PMAP_ID"},
    {&Atoms::compositor, "_NET_WM_CM_S0"},
};

} // namespace

// All requests are sent before the first reply is read: one round trip.
Atoms::Atoms(xcb_connection_t* connection) {
    std::array<xcb_intern_atom_cookie_t, std::size(namedAtoms)> cookies{};
    for (std::size_t i = 0; i < std::size(namedAtoms); ++i) {
        const auto name = namedAtoms[i].name;
        cookies[i] =
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    }
    for (std::size_t i = 0; i < std::size(namedAtoms); ++i) {
        if (auto* reply = xcb_intern_atom_reply(connection, cookies[i], nullptr)) {
            this->*namedAtoms[i].member = reply->atom;
            std::free(reply);
        }
    }
}

} // namespace larkspan::x11
