#pragma once

#include "platform/Accessibility.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "spaces/AppWindow.h"
#include "spaces/ClosedCheck.h"
#include "spaces/FullScreenState.h"
#include "spaces/WindowInfo.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace larkspan::WindowPresence {

enum class Listed { onScreen, everywhere };

/// The window server's app windows, front to back: ordinary ones of a known process that are not
/// invisible and at least 60 × 40 points. Absent if the window server returned no list. Any thread.
std::optional<std::vector<WindowInfo>> listWindows(const WindowServer& server, Listed listed);

/// The app's windows as its Accessibility tree lists them. Absent if the app is busy or hung; an
/// empty list if it has none or may not be asked. `timeout` is in seconds; without one, the
/// system's is used. Blocks as long as the app takes. Any thread.
std::optional<std::vector<AppWindow>> accessibilityWindows(const Accessibility& accessibility,
                                                           ProcessId pid,
                                                           std::optional<float> timeout = {});

/// The result of a search for an app's windows.
struct WindowSearch {
    /// The windows that Accessibility lists, then those that only the search found, which are on
    /// Spaces out of view.
    std::vector<AppWindow> windows;
    /// Whether the search was complete and found every window that Accessibility lists, so that a
    /// window it did not find can be taken for closed.
    bool isConclusive = false;
};

/// Searches the app's windows on all Spaces: Accessibility lists only those of the Spaces in view,
/// but finds the others by number. With numbers in `sought`, the search ends when these are found.
/// Takes up to 0.25 s of `clock`, and finds no others if the system has no such function. Any
/// thread except the main one.
WindowSearch windowsOnOtherSpaces(const Accessibility& accessibility, ProcessId pid,
                                  const Scheduler& clock, const std::set<WindowId>& sought = {});

/// Asks each of the apps which of its listed windows it confirms, by number; an app with a valid
/// cached check is not asked. Without permission, or without an app to ask, returns the cached
/// checks. An app that does not respond hides nothing, and is not asked again for as long as any
/// other. Blocks as long as the apps take. Any thread.
ClosedChecks closedChecks(const Accessibility& accessibility,
                          const std::vector<WindowInfo>& windows, const std::set<ProcessId>& pids,
                          ClosedChecks kept, const Scheduler& clock);

/// Whether x, y, width and height each differ by at most one point.
bool framesMatch(const Rect& a, const Rect& b);

/// The identifiers of the displays whose current Space is a full-screen one.
std::set<std::string> fullScreenDisplays(const std::vector<ManagedDisplay>& displays);

FullScreenState fullScreenState(const std::vector<WindowInfo>& windows,
                                const std::vector<Screen>& screens,
                                const std::vector<ManagedDisplay>& displays);

/// The display that shows most of the rectangle (display coordinates), the first of two that show
/// the same amount; absent if none shows any of it.
std::optional<DisplayId> displayOf(const Rect& bounds, const std::vector<Screen>& screens);

} // namespace larkspan::WindowPresence
