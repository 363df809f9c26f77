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

/// Watches the focused window of the frontmost app, to notice at once when it grows over the bar's
/// strip or shrinks again, before a read of the window list. The reads decide which displays are
/// covered. The app is asked on a separate queue: a hung one does not block the main thread, and is
/// asked again later. Main thread only.
class FullScreenWatcher {
  public:
    /// Seconds until an app that did not respond is asked again.
    static constexpr double retryDelay = 2;

    FullScreenWatcher(Scheduler& scheduler, Workspace& workspace, Screens& screens,
                      Accessibility& accessibility, DiagnosticsLog& log);
    FullScreenWatcher(const FullScreenWatcher&) = delete;
    FullScreenWatcher& operator=(const FullScreenWatcher&) = delete;

    /// The points at the bottom of each screen to keep free; if there are none, nothing is
    /// reported.
    std::function<std::optional<double>()> barHeight;
    /// The focused window has grown over the strip of the screen with that frame, or does not cover
    /// it any more.
    std::function<void(const Rect& screenFrame)> onGrown;
    std::function<void(const Rect& screenFrame)> onShrunk;

    void start();
    void stop();

  private:
    /// The result of one visit to the app.
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
    /// Counts the followed apps, to recognise late results of an earlier one.
    int round_ = 0;
    /// Observe the app's windows.
    std::vector<Handle> appObservers_;
    /// The focused window whose end is observed.
    std::optional<WindowId> observedWindow_;
    Handle windowObserver_;
    std::optional<FocusedWindow> last_;
    bool isVisiting_ = false;
    bool visitAgain_ = false;
    Handle retry_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace larkspan
