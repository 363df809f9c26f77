#pragma once

#include "platform/Identifiers.h"

#include <map>
#include <set>

namespace larkspan {

/// What an app's Accessibility tree said of the windows that the window list gives for it.
struct ClosedCheck {
    /// Those of `listed` that Accessibility did not confirm. Empty when the app did not answer.
    std::set<WindowId> hidden;
    /// The app's windows with a title and a number, at the time of the check.
    std::set<WindowId> listed;
    /// Seconds of the media clock.
    double time = 0;

    /// Whether the app need not be asked again.
    bool holds(const std::set<WindowId>& listedNow, double now) const;

    bool operator==(const ClosedCheck&) const = default;
};

using ClosedChecks = std::map<ProcessId, ClosedCheck>;

} // namespace larkspan
