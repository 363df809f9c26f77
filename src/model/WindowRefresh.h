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

/// Keeps a `DockStore` in step with the desktop: hears what changed, asks for window reads (one at
/// a time) and regroups after them. What the desktop does not announce is polled; what it announces
/// costs nothing until it happens. Main thread only.
class WindowRefresh {
  public:
    /// Reads the windows once, before it returns.
    WindowRefresh(DockStore& store, Scheduler& scheduler, Workspace& workspace, Screens& screens,
                  WindowServer& server, const Accessibility& accessibility, DockPreferences& dock,
                  EventMonitors& monitors, DiagnosticsLog& log);

    /// Told of each read that was made in full: the owners of the windows that count.
    std::function<void(const std::set<ProcessId>& owners)> onFullRead;

    /// `rebuild` forces a regroup after the read even if nothing changed.
    void requestRead(bool rebuild);
    /// The pointer came onto a bar or left it. Tiles keep their sections meanwhile and are released
    /// all at once when it leaves. A menu of the bar that is open holds them wherever the pointer
    /// is.
    void setPointerOnBar(bool onBar, bool isMenuOpen = false);
    /// The Spaces slide: reads are held until the workspace tells of another Space, or until
    /// `endSpaceSwitch`.
    void beginSpaceSwitch();
    /// The Spaces stand still again, whether or not another one shows now.
    void endSpaceSwitch();

    /// Windows that the window server still lists on Spaces out of view, and their apps no longer.
    std::set<WindowId> closedWindows() const { return reach_.closed(); }
    /// No read is in flight, asked for or held back.
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

    /// A read is in flight (or, where the platform reads at once, waits for its turn).
    bool isReadingWindows_ = false;
    /// Another read was asked for while one was in flight.
    bool readAgain_ = false;
    bool rebuildAfterRead_ = false;
    /// Reads are held back during a slide; its end always brings one.
    bool isSwitchingSpaces_ = false;
    std::optional<FullRead> lastFullRead_;
    /// As the views told last; the poll finds out whether it still holds.
    bool isPointerTold_ = false;
    bool isMenuOpen_ = false;
    /// The wait between a click or a Command key and the read that follows it.
    Handle readAfterInput_;
    std::vector<Handle> observations_;
    /// Ends with this object, so that a read that comes back later finds nobody.
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace larkspan
