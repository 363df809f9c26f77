#pragma once

#include "platform/Scheduler.h"
#include "platform/WindowServer.h"
#include "spaces/SpaceSwitchLog.h"

#include <memory>
#include <string>

namespace larkspan {

/// Polls which Space the display in use shows, so that the timeline has the time of a switch beside
/// the time of the system's notification. For desktops that do not announce changes. It reads on
/// its own queue, with that queue's timer, and never wakes the main thread, on which all methods
/// are called.
class SpacePoll {
  public:
    /// Seconds between reads: during a switch, and otherwise.
    static constexpr double fastInterval = 0.02;
    static constexpr double slowInterval = 0.5;

    /// `displayInUse` returns the window server's name of that display; empty means the first.
    SpacePoll(Scheduler& scheduler, const WindowServer& server, SpaceSwitchLog& log,
              std::string displayInUse);
    /// Waits for a running read.
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
