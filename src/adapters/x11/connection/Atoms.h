#pragma once

#include <cstdint>

#include <xcb/xcb.h>

namespace larkspan::x11 {

/// The atoms that the program uses; 0 if the connection is broken.
struct Atoms {
    explicit Atoms(xcb_connection_t* connection);

    // Properties that the window manager sets on the root window.
    xcb_atom_t netSupported = 0;
    xcb_atom_t netSupportingWmCheck = 0;
    xcb_atom_t netClientList = 0;
    xcb_atom_t netClientListStacking = 0;
    xcb_atom_t netActiveWindow = 0;
    xcb_atom_t netCurrentDesktop = 0;
    xcb_atom_t netNumberOfDesktops = 0;
    xcb_atom_t netCloseWindow = 0;
    xcb_atom_t netRestackWindow = 0;

    // Properties of windows.
    xcb_atom_t netWmName = 0;
    xcb_atom_t netWmPid = 0;
    xcb_atom_t netWmDesktop = 0;
    xcb_atom_t netWmIcon = 0;
    xcb_atom_t netWmIconGeometry = 0;
    xcb_atom_t netWmWindowOpacity = 0;
    xcb_atom_t netFrameExtents = 0;
    xcb_atom_t gtkFrameExtents = 0;
    xcb_atom_t netWmStrut = 0;
    xcb_atom_t netWmStrutPartial = 0;
    xcb_atom_t wmState = 0;
    xcb_atom_t wmChangeState = 0;
    xcb_atom_t wmProtocols = 0;
    xcb_atom_t wmDeleteWindow = 0;
    xcb_atom_t wmTakeFocus = 0;
    xcb_atom_t netWmPing = 0;

    xcb_atom_t netWmState = 0;
    xcb_atom_t stateHidden = 0;
    xcb_atom_t stateShaded = 0;
    xcb_atom_t stateFullscreen = 0;
    xcb_atom_t stateSkipTaskbar = 0;
    xcb_atom_t stateSkipPager = 0;
    xcb_atom_t stateSticky = 0;
    xcb_atom_t stateAbove = 0;
    xcb_atom_t stateDemandsAttention = 0;

    xcb_atom_t netWmWindowType = 0;
    xcb_atom_t typeNormal = 0;
    xcb_atom_t typeDialog = 0;
    xcb_atom_t typeUtility = 0;
    xcb_atom_t typeToolbar = 0;
    xcb_atom_t typeMenu = 0;
    xcb_atom_t typeSplash = 0;
    xcb_atom_t typeDock = 0;
    xcb_atom_t typeDesktop = 0;

    xcb_atom_t utf8String = 0;
    xcb_atom_t compoundText = 0;
    xcb_atom_t rootPixmap = 0;
    xcb_atom_t esetrootPixmap = 0;
    /// The selection owned by a compositor of the default screen.
    xcb_atom_t compositor = 0;
};

// What properties of several uses say.

/// In _NET_WM_DESKTOP.
inline constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;
/// In WM_STATE, and in the request to minimise a window.
inline constexpr std::uint32_t iconicState = 3;
/// A flag of WM_HINTS: the hints say whether the window takes the focus.
inline constexpr std::uint32_t inputHint = 1u << 0;

} // namespace larkspan::x11
