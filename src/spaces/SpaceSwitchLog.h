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

/// Writes what happens around a switch of Spaces to the system's log, to the millisecond, so that
/// the bar's timing can be judged afterwards. Costs nothing while nobody keeps the log. Main thread
/// only, but for `stamp`.
class SpaceSwitchLog {
  public:
    using Mark = SwitchClock::Mark;

    SpaceSwitchLog(Scheduler& scheduler, SystemLog& systemLog, DisplayLink& displayLink,
                   const Screens& screens);
    SpaceSwitchLog(const SpaceSwitchLog&) = delete;
    SpaceSwitchLog& operator=(const SpaceSwitchLog&) = delete;

    /// One entry of the timeline, dropped when none runs. Any thread.
    void stamp(std::string_view kind, std::string_view text, Mark mark);
    /// A failure, which is written whether or not a timeline runs. Any thread.
    void stampError(std::string_view kind, std::string_view text);

    /// The system tells that another Space is active.
    void spaceChanged();
    void appActivated(const RunningApplication& application);
    void screensChanged();

    /// The bars as they are drawn now; may be empty.
    std::function<std::vector<BarState>()> readBars;
    /// A timeline has begun, or has run out.
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
    /// What was written last of each bar in this timeline.
    std::vector<BarState> lastBars_;
    /// Uptime of the last frame sampled.
    std::optional<double> lastFrame_;
    Handle frames_;
    Handle endTimer_;
    /// Ends with this object, so that what was posted finds nobody.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace larkspan
