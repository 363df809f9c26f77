#pragma once

#include "dock/DockProfile.h"
#include "soak/day/Day.h"
#include "soak/day/Failure.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace larkspan::soak {

/// Checks a day after each of its steps: the rules that always hold, and what must not have changed
/// since the previous step.
class Watch {
  public:
    explicit Watch(Day& day);

    /// The first broken rule.
    MaybeFailure afterStep();
    /// The same at rest, when everything due has been done and all acts of the user have been
    /// followed.
    MaybeFailure atRest();

  private:
    /// The values that are compared with the previous step.
    struct Moment {
        /// The number of the program's run; absent while it is not running.
        std::optional<int> run;
        bool isPointerOnBar = false;
        /// Whether the tile of a process is among the window apps.
        std::map<std::pair<std::string, ProcessId>, bool> isWindowApp;
        std::set<std::string> regrouping;
        std::vector<std::string> pinned;
        std::optional<DockProfile> savedProfile;
        sim::DockSettings dock;
        bool isWithoutDisplay = false;
    };

    Moment look() const;
    MaybeFailure ofProgram(const Moment& now);
    MaybeFailure sectionsKept(const Moment& now) const;
    MaybeFailure pinsKept(const Moment& now) const;
    MaybeFailure dockGivenBack(const Moment& now) const;
    void followLaunching();
    MaybeFailure oneRead(const Moment& now);

    Day& day_;
    Moment before_;
    int pinActsAtRest_ = 0;
    /// When each launching mark first appeared, in seconds of uptime.
    std::map<std::string, double> launchingSince_;
    /// Reads that ended runs of the program left in their queue.
    std::size_t orphanedReads_ = 0;
    /// Whether a function of the Dock is missing, or was when the program started.
    bool lacksDockFunctions_ = false;
};

/// Each id once in its list, no app in two sections, the Finder first.
MaybeFailure listsAreSound(const DockStore& store);

} // namespace larkspan::soak
