#pragma once

#include <array>
#include <string_view>

namespace larkspan::sim {

/// The names of the functions that no header declares; any of them may be missing on some system.
inline constexpr std::array<std::string_view, 16> privateFunctions{
    "CoreDockGetTileSize",
    "CoreDockSetTileSize",
    "CoreDockGetAutoHideEnabled",
    "CoreDockSetAutoHideEnabled",
    "CoreDockGetOrientationAndPinning",
    "CoreDockSetOrientationAndPinning",
    "CoreDockIsMagnificationEnabled",
    "CoreDockSetMagnificationEnabled",
    "CoreDockSendNotification",
    "CGWindowListCreate",
    "CGSMainConnectionID",
    "CGSCopyManagedDisplaySpaces",
    "SLSCopyWindowsWithOptionsAndTags",
    "SLSMoveWindowsToManagedSpace",
    "_AXUIElementGetWindow",
    "_AXUIElementCreateWithRemoteToken",
};

} // namespace larkspan::sim
