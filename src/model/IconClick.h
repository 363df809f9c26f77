#pragma once

#include "diagnostics/DiagnosticsLog.h"
#include "model/DockStore.h"
#include "platform/Accessibility.h"
#include "platform/Geometry.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"
#include "spaces/AppWindow.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace larkspan {

/// What a left click on a tile does: it sends away the app whose windows are in front, brings any
/// other running app forward, and launches one that does not run. Main thread only.
class IconClick {
  public:
    IconClick(DockStore& store, Scheduler& scheduler, Workspace& workspace,
              ApplicationControl& applications, Accessibility& accessibility, DiagnosticsLog& log);

    /// `group` is the group the tile stands in, nullptr for pinned and background tiles;
    /// `tileFrame` is the tile's frame in screen coordinates.
    void click(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame);

  private:
    /// A click as it was found, so that the steps judge one and the same state.
    struct Clicked {
        const DockItem& item;
        const DisplayGroup* group;
        const Rect& tileFrame;
        ProcessId pid = 0;
        bool isHidden = false;
        WindowAnimator::Phase phase = WindowAnimator::Phase::none;
        /// Asked for at most once: an app that does not answer costs a whole time-out each time.
        std::optional<std::vector<AppWindow>> windows;
        bool answers = true;
    };

    void clickRunning(Clicked clicked);
    void launch(const DockItem& item, const Rect& tileFrame);
    void letTileMove(const std::string& id);
    bool shouldHide(Clicked& clicked) const;
    void bringForward(Clicked& clicked);
    void raiseMainWindow(ProcessId pid);
    void raise(const AXElementRef& window);
    void activate(ProcessId pid);
    void restore(const std::vector<AppWindow>& windows);
    const std::vector<AppWindow>& windowsOf(Clicked& clicked) const;
    std::optional<ProcessId> recentActivation() const;
    std::optional<ProcessId> frontProcess() const;

    DockStore& store_;
    Scheduler& scheduler_;
    Workspace& workspace_;
    ApplicationControl& applications_;
    Accessibility& accessibility_;
    DiagnosticsLog& log_;
    /// Ends the launching mark of an app that never comes.
    std::map<std::string, Handle> launchLimits_;
};

} // namespace larkspan
