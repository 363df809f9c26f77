#pragma once

#include "diagnostics/DiagnosticsLog.h"
#include "platform/Accessibility.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"
#include "spaces/FocusedWindow.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace larkspan {

/// Watches the focused window of the app in front, so that it is known at once when it grows over
/// the bar's strip or shrinks back, before a read of the window list finds out. Which displays are
/// covered at all is told by the reads. The app is asked on a queue of its own: one that hangs
/// costs the main thread nothing, and is asked again later. Main thread only.
class FullScreenWatcher {
  public:
    /// Seconds until an app that did not answer is asked again.
    static constexpr double retryDelay = 2;

    FullScreenWatcher(Scheduler& scheduler, Workspace& workspace, Screens& screens,
                      Accessibility& accessibility, DiagnosticsLog& log);
    FullScreenWatcher(const FullScreenWatcher&) = delete;
    FullScreenWatcher& operator=(const FullScreenWatcher&) = delete;

    /// Points at the bottom of each screen to keep free; nothing is reported while there are none.
    std::function<std::optional<double>()> barHeight;
    /// The focused window has grown over the strip of the screen with that frame, or no longer
    /// lies over it.
    std::function<void(const Rect& screenFrame)> onGrown;
    std::function<void(const Rect& screenFrame)> onShrunk;

    void start();
    void stop();

  private:
    /// What one visit to the app brought back.
    struct Visit;
    struct Task;

    void workspaceChanged(const WorkspaceEvent& event);
    void follow(std::optional<ProcessId> pid);
    void visit();
    void visited(Visit visit);
    void take(Visit visit);
    void windowGone();
    void compare(std::optional<FocusedWindow> now);

    Scheduler& scheduler_;
    Workspace& workspace_;
    Screens& screens_;
    Accessibility& accessibility_;
    DiagnosticsLog& log_;
    Handle workspaceEvents_;

    std::optional<ProcessId> pid_;
    /// Counts the apps followed, so that what comes back late from an earlier one is known.
    int round_ = 0;
    /// The app tells of its windows.
    std::vector<Handle> appObservers_;
    /// The focused window tells of its end.
    std::optional<WindowId> observedWindow_;
    Handle windowObserver_;
    std::optional<FocusedWindow> last_;
    bool isVisiting_ = false;
    bool visitAgain_ = false;
    Handle retry_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace larkspan
