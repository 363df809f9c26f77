#pragma once

namespace larkspan::mac {

/// How a system lets a program move other programs' windows to another Space.
enum class WindowMove {
    /// SLSMoveWindowsToManagedSpace.
    managedSpace,
    /// A compatibility number lent to the Space, to which the windows are then moved.
    compatibilityNumber,
    /// Nothing works: the calls answer success and do nothing.
    none,
    /// An operation object of the window server's bridge.
    bridgedOperation,
};

/// The way of macOS `major.minor`. The change to compatibility numbers came to three systems at
/// once, as a security update.
constexpr WindowMove windowMoveOf(long major, long minor) {
    if (major >= 26) return WindowMove::bridgedOperation;
    if (major >= 15) return WindowMove::none;
    const bool isUpdated =
        (major == 14 && minor >= 5) || (major == 13 && minor >= 6) || (major == 12 && minor >= 7);
    return isUpdated ? WindowMove::compatibilityNumber : WindowMove::managedSpace;
}

} // namespace larkspan::mac
