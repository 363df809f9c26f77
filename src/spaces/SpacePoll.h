#pragma once

#include "platform/Scheduler.h"
#include "platform/WindowServer.h"
#include "spaces/SpaceSwitchLog.h"

#include <memory>
#include <string>

namespace larkspan {

/// Asks again and again which Space the display in use shows, so that the timeline has the moment
/// of a switch beside the moment at which the system announces it. For desktops that do not
/// announce changes by themselves. It reads on a queue of its own, by that queue's timer, and never
/// wakes the main thread, on which all methods are called.
class SpacePoll {
  public:
    /// Seconds between reads: while a switch is under way, and otherwise.
    static constexpr double fastInterval = 0.02;
    static constexpr double slowInterval = 0.5;

    /// `displayInUse` is the window server's name of that display; empty is the first.
    SpacePoll(Scheduler& scheduler, const WindowServer& server, SpaceSwitchLog& log,
              std::string displayInUse);
    /// Waits for a read that runs.
    ~SpacePoll();
    SpacePoll(const SpacePoll&) = delete;
    SpacePoll& operator=(const SpacePoll&) = delete;

    void setDisplayInUse(const std::string& name);
    void setFast(bool isFast);
    bool isFast() const { return isFast_; }

  private:
    struct State;
    void startTimer();

    SerialQueue& queue_;
    std::string displayInUse_;
    bool isFast_ = false;
    std::shared_ptr<State> state_;
    Handle timer_;
};

} // namespace larkspan
