#pragma once

#include "platform/Accessibility.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "spaces/AppWindow.h"
#include "spaces/FullScreenState.h"
#include "spaces/WindowInfo.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace larkspan::WindowPresence {

enum class Listed { onScreen, everywhere };

/// The window server's app windows, front to back: ordinary ones of a known process that are not
/// invisible and at least 60 × 40 points. Absent when the window server gave no list. Any thread.
std::optional<std::vector<WindowInfo>> listWindows(const WindowServer& server, Listed listed);

/// The app's windows as its Accessibility tree lists them. Absent when the app is busy or hung; an
/// empty list when it has none or may not be asked. `timeout` is in seconds; without one the
/// system's holds. Blocks for as long as the app takes. Any thread.
std::optional<std::vector<AppWindow>> accessibilityWindows(const Accessibility& accessibility,
                                                           ProcessId pid,
                                                           std::optional<float> timeout = {});

/// Whether x, y, width and height each differ by at most one point.
bool framesMatch(const Rect& a, const Rect& b);

/// The displays' identifiers whose current Space is a full-screen one.
std::set<std::string> fullScreenDisplays(const std::vector<ManagedDisplay>& displays);

FullScreenState fullScreenState(const std::vector<WindowInfo>& windows,
                                const std::vector<Screen>& screens,
                                const std::vector<ManagedDisplay>& displays);

/// The display that shows most of the rectangle (display coordinates), the first of two that show
/// as much; absent when none shows any.
std::optional<DisplayId> displayOf(const Rect& bounds, const std::vector<Screen>& screens);

} // namespace larkspan::WindowPresence
