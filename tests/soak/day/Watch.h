#pragma once

#include "dock/DockProfile.h"
#include "soak/day/Complaint.h"
#include "soak/day/Day.h"

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace larkspan::soak {

/// Looks at a day after each of its steps: what must hold at every moment, and what must not have
/// changed since the step before.
class Watch {
  public:
    explicit Watch(Day& day);

    /// The first broken rule.
    Verdict afterStep();
    /// The same at rest, when all that was due has had its turn and the user's acts until here have
    /// been followed.
    Verdict atRest();

  private:
    /// What is compared with the step before.
    struct Moment {
        /// Counts the runs of the program; absent while it does not run.
        std::optional<int> run;
        bool isPointerOnBar = false;
        /// Whether the tile of a process stands among the window apps.
        std::map<std::pair<std::string, ProcessId>, bool> isWindowApp;
        std::set<std::string> regrouping;
        std::vector<std::string> pinned;
        std::optional<DockProfile> savedProfile;
        sim::DockSettings dock;
        bool isWithoutDisplay = false;
    };

    Moment look() const;
    Verdict ofProgram(const Moment& now);
    Verdict sectionsKept(const Moment& now) const;
    Verdict pinsKept(const Moment& now) const;
    Verdict dockGivenBack(const Moment& now) const;
    void followLaunching();
    Verdict oneRead(const Moment& now);

    Day& day_;
    Moment before_;
    int pinActsAtRest_ = 0;
    /// When each launching mark was first seen, in seconds of uptime.
    std::map<std::string, double> launchingSince_;
    /// Reads that runs of the program which have ended left in their queue.
    std::size_t orphanedReads_ = 0;
    /// The Dock's functions are not all there, or were not when the program started.
    bool lacksDockFunctions_ = false;
};

/// Each id once in its list, no app in two sections, the Finder first.
Verdict listsAreSound(const DockStore& store);

} // namespace larkspan::soak
