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
/// invisible and at least 60 × 40 points. Absent when the window server gave no list. Any thread.
std::optional<std::vector<WindowInfo>> listWindows(const WindowServer& server, Listed listed);

/// The app's windows as its Accessibility tree lists them. Absent when the app is busy or hung; an
/// empty list when it has none or may not be asked. `timeout` is in seconds; without one the
/// system's holds. Blocks for as long as the app takes. Any thread.
std::optional<std::vector<AppWindow>> accessibilityWindows(const Accessibility& accessibility,
                                                           ProcessId pid,
                                                           std::optional<float> timeout = {});

/// What a search for an app's windows came to.
struct WindowSearch {
    /// The windows that Accessibility lists, then those that only the search found: they are on
    /// Spaces not in view.
    std::vector<AppWindow> windows;
    /// The search went through to its end and met every window that Accessibility lists, so that a
    /// window it did not meet may be taken to be none.
    bool isConclusive = false;
};

/// Searches the app's windows on all Spaces: Accessibility lists those of the Spaces in view only,
/// but knows the others when they are asked for by number. With numbers `sought`, the search ends
/// once these are found. Takes up to 0.25 s of `clock`, and finds nothing further where the system
/// has no such function. Any thread, but not the main one.
WindowSearch windowsOnOtherSpaces(const Accessibility& accessibility, ProcessId pid,
                                  const Scheduler& clock, const std::set<WindowId>& sought = {});

/// Asks each of the apps which of its listed windows it confirms, by number; an app whose kept
/// check still holds is not asked. Without permission, or without an app to ask, the kept checks
/// are the answer. An app that does not answer hides nothing, and is left alone as long as any
/// other. Blocks for as long as the apps take. Any thread.
ClosedChecks closedChecks(const Accessibility& accessibility,
                          const std::vector<WindowInfo>& windows, const std::set<ProcessId>& pids,
                          ClosedChecks kept, const Scheduler& clock);

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
