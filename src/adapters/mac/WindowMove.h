#pragma once

namespace larkspan::mac {

/// How a program can move other programs' windows to another Space on this system.
enum class WindowMove {
    /// SLSMoveWindowsToManagedSpace.
    managedSpace,
    /// A compatibility number is set on the Space, and the windows are moved to that number.
    compatibilityNumber,
    /// Nothing works: the functions return success and do nothing.
    none,
    /// An operation object of the window server's bridge.
    bridgedOperation,
};

/// The method for macOS `major.minor`. Compatibility numbers came to three systems at once, as a
/// security update.
constexpr WindowMove windowMoveOf(long major, long minor) {
    if (major >= 26) return WindowMove::bridgedOperation;
    if (major >= 15) return WindowMove::none;
    const bool isUpdated =
        (major == 14 && minor >= 5) || (major == 13 && minor >= 6) || (major == 12 && minor >= 7);
    return isUpdated ? WindowMove::compatibilityNumber : WindowMove::managedSpace;
}

} // namespace larkspan::mac
