#pragma once

#include "diagnostics/DiagnosticsLog.h"
#include "model/ClickModifiers.h"
#include "model/DockStore.h"
#include "model/ItemActions.h"
#include "platform/Accessibility.h"
#include "platform/ApplicationControl.h"
#include "platform/Geometry.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"
#include "spaces/AppWindow.h"

#include <optional>
#include <vector>

namespace larkspan {

/// A click on a tile: hides the app if its windows are in front, brings any other running app
/// forward, and launches one that is not running. Option also hides the previously frontmost app,
/// Option and Command hide all others; the clicked app is then never hidden. Command shows the app
/// in the file manager. Main thread only.
class IconClick {
  public:
    IconClick(DockStore& store, ItemActions& actions, Scheduler& scheduler, Workspace& workspace,
              ApplicationControl& applications, Accessibility& accessibility, DiagnosticsLog& log);

    /// `group` is the tile's group, nullptr for pinned and background tiles; `tileFrame` is the
    /// tile's frame in screen coordinates.
    void click(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame,
               ClickModifiers modifiers = {});

  private:
    /// The state at the time of the click, so that all steps use the same one.
    struct Clicked {
        const DockItem& item;
        const DisplayGroup* group;
        const Rect& tileFrame;
        ProcessId pid = 0;
        bool isHidden = false;
        WindowAnimator::Phase phase = WindowAnimator::Phase::none;
        /// The app must come forward, whatever its state.
        bool onlyForward = false;
        /// Read at most once: an app that does not respond costs a whole time-out each time.
        std::optional<std::vector<AppWindow>> windows;
        bool answers = true;
    };

    void clickRunning(Clicked clicked);
    void open(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame,
              bool onlyForward);
    void hideOne(std::optional<ProcessId> pid);
    bool shouldHide(Clicked& clicked) const;
    void bringForward(Clicked& clicked);
    void raiseMainWindow(ProcessId pid);
    const std::vector<AppWindow>& windowsOf(Clicked& clicked) const;
    std::optional<ProcessId> recentActivation() const;
    std::optional<ProcessId> frontProcess() const;

    DockStore& store_;
    ItemActions& actions_;
    Scheduler& scheduler_;
    Workspace& workspace_;
    ApplicationControl& applications_;
    Accessibility& accessibility_;
    DiagnosticsLog& log_;
};

} // namespace larkspan
