#pragma once

#include "diagnostics/DiagnosticsLog.h"
#include "model/DockStore.h"
#include "model/WindowReach.h"
#include "platform/DockPreferences.h"
#include "platform/EventMonitor.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"
#include "spaces/WindowReader.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace larkspan {

/// Keeps a `DockStore` up to date with the desktop: receives its notifications, requests window
/// reads (one at a time) and regroups after them. Polls only what the desktop does not announce.
/// Main thread only.
class WindowRefresh {
  public:
    /// Reads the windows once, before it returns.
    WindowRefresh(DockStore& store, Scheduler& scheduler, Workspace& workspace, Screens& screens,
                  WindowServer& server, const Accessibility& accessibility, DockPreferences& dock,
                  EventMonitors& monitors, DiagnosticsLog& log);

    /// Called after each full read with the owners of the windows that count.
    std::function<void(const std::set<ProcessId>& owners)> onFullRead;

    /// `rebuild` forces a regroup after the read even if nothing changed.
    void requestRead(bool rebuild);
    /// The pointer entered a bar or left it. In between, tiles keep their sections; they are
    /// released together when it leaves. An open menu of the bar holds them wherever the pointer
    /// is.
    void setPointerOnBar(bool onBar, bool isMenuOpen = false);
    /// The Spaces start to slide: reads are held until the workspace reports another Space, or
    /// until `endSpaceSwitch`.
    void beginSpaceSwitch();
    /// The Spaces have stopped, whether or not another one is shown now.
    void endSpaceSwitch();

    /// Windows that the window server still lists on Spaces out of view, but their apps do not.
    std::set<WindowId> closedWindows() const { return reach_.closed(); }
    /// Whether no read is running, requested or held.
    bool isAtRest() const {
        return !isReadingWindows_ && !readAgain_ && !rebuildAfterRead_ && !isSwitchingSpaces_;
    }

  private:
    struct FullRead {
        ReadBase base;
        /// Uptime at its start, in seconds.
        double time = 0;
    };

    void readAtStart();
    void observe();
    void workspaceChanged(const WorkspaceEvent& event);
    void appsChanged(const WorkspaceEvent& event);
    void followAnimator(WorkspaceEvent::Kind kind, ProcessId pid);
    std::optional<RunningApplication> followFront();
    void frontmostChanged();
    void screensChanged();
    void catchUp();
    void poll();
    bool isPointerInBarFrames() const;
    void holdTiles(bool hold);
    void inputHeard(const InputEvent& event);

    void readSoon();
    void readOnQueue();
    std::optional<ReadBase> baseOfRead() const;
    void readFinished(std::optional<WindowRead> read, double start);
    void apply(std::optional<WindowRead> read, double start, double end);

    DockStore& store_;
    Scheduler& scheduler_;
    Workspace& workspace_;
    Screens& screens_;
    WindowServer& server_;
    DockPreferences& dock_;
    EventMonitors& monitors_;
    DiagnosticsLog& log_;
    const WindowServerAbilities abilities_;
    const WindowReader reader_;
    WindowReach reach_;

    /// A read is running (or, on a platform that reads at once, waits for its turn).
    bool isReadingWindows_ = false;
    /// Another read was requested while one was running.
    bool readAgain_ = false;
    bool rebuildAfterRead_ = false;
    /// Reads are held during a slide; its end always causes one.
    bool isSwitchingSpaces_ = false;
    std::optional<FullRead> lastFullRead_;
    /// The views' last report; the poll checks whether it is still true.
    bool isPointerTold_ = false;
    bool isMenuOpen_ = false;
    /// The wait between a click or a Command key and the read that follows it.
    Handle readAfterInput_;
    std::vector<Handle> observations_;
    /// Expires with this object, for reads that finish later.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace larkspan
