#pragma once

#include "platform/Identifiers.h"

#include <map>
#include <set>

namespace larkspan {

/// The result of asking an app's Accessibility tree about the windows in the window list.
struct ClosedCheck {
    /// Those of `listed` that Accessibility did not confirm. Empty if the app did not respond.
    std::set<WindowId> hidden;
    /// The app's windows with a title and a number, at the time of the check.
    std::set<WindowId> listed;
    /// Seconds of the media clock.
    double time = 0;

    /// Whether the check is still valid.
    bool holds(const std::set<WindowId>& listedNow, double now) const;

    bool operator==(const ClosedCheck&) const = default;
};

using ClosedChecks = std::map<ProcessId, ClosedCheck>;

} // namespace larkspan
