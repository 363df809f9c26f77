#pragma once

#include "platform/DisplayLink.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/SystemLog.h"
#include "platform/Workspace.h"
#include "spaces/BarState.h"
#include "spaces/SwitchClock.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan {

/// Writes what happens around a switch of Spaces to the system's log, in milliseconds, so that the
/// bar's timing can be examined later. Costs nothing if nobody reads the log. Main thread only,
/// except `stamp`.
class SpaceSwitchLog {
  public:
    using Mark = SwitchClock::Mark;

    SpaceSwitchLog(Scheduler& scheduler, SystemLog& systemLog, DisplayLink& displayLink,
                   const Screens& screens);
    SpaceSwitchLog(const SpaceSwitchLog&) = delete;
    SpaceSwitchLog& operator=(const SpaceSwitchLog&) = delete;

    /// One entry of the timeline, ignored if none is running. Any thread.
    void stamp(std::string_view kind, std::string_view text, Mark mark);
    /// An error, which is written whether or not a timeline is running. Any thread.
    void stampError(std::string_view kind, std::string_view text);

    /// The system reports another active Space.
    void spaceChanged();
    void appActivated(const RunningApplication& application);
    void screensChanged();

    /// The bars as they are drawn now; may be empty.
    std::function<std::vector<BarState>()> readBars;
    /// A timeline has started or ended.
    std::function<void(bool isRunning)> onRunning;

    bool isRunning() const { return isFollowing_; }

  private:
    void write(SystemLog::Level level, const std::string& text);
    void begin(std::string_view kind, std::string_view text, bool endsAnother);
    void follow();
    void awaitEnd();
    void end();
    void frameDrawn();
    std::vector<BarState> bars() const;

    Scheduler& scheduler_;
    SystemLog& systemLog_;
    DisplayLink& displayLink_;
    const Screens& screens_;
    SwitchClock clock_;
    bool isFollowing_ = false;
    /// The last entry of each bar in this timeline.
    std::vector<BarState> lastBars_;
    /// Uptime of the last frame sampled.
    std::optional<double> lastFrame_;
    Handle frames_;
    Handle endTimer_;
    /// Expires with this object, for posted tasks.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace larkspan
