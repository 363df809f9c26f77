#pragma once

#include "platform/Scheduler.h"
#include "platform/WindowServer.h"
#include "spaces/SpaceSwitchLog.h"

#include <functional>
#include <memory>
#include <string>

namespace larkspan {

/// Asks again and again which Space the display in use shows, so that the timeline has the moment
/// of a switch beside the moment at which the system tells of it. For desktops that do not announce
/// changes by themselves. Main thread only; the reads are made on a queue of their own.
class SpacePoll {
  public:
    /// Seconds between reads: while a switch is under way, and otherwise.
    static constexpr double fastInterval = 0.02;
    static constexpr double slowInterval = 0.5;

    /// `displayInUse` answers the window server's name of that display; empty is the first.
    SpacePoll(Scheduler& scheduler, const WindowServer& server, SpaceSwitchLog& log,
              std::function<std::string()> displayInUse);
    /// Waits for a read that runs.
    ~SpacePoll();
    SpacePoll(const SpacePoll&) = delete;
    SpacePoll& operator=(const SpacePoll&) = delete;

    void setFast(bool isFast);
    bool isFast() const { return isFast_; }

  private:
    struct State;
    void startTimer();
    void beat();

    Scheduler& scheduler_;
    std::function<std::string()> displayInUse_;
    bool isFast_ = false;
    std::shared_ptr<State> state_;
    Handle timer_;
};

} // namespace larkspan
