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

/// What a click on a tile does: it sends away the app whose windows are in front, brings any other
/// running app forward, and launches one that does not run. With Option the app left behind is
/// hidden, with Option and Command all others are; then nothing is sent away. Command shows where
/// the app lies. Main thread only.
class IconClick {
  public:
    IconClick(DockStore& store, ItemActions& actions, Scheduler& scheduler, Workspace& workspace,
              ApplicationControl& applications, Accessibility& accessibility, DiagnosticsLog& log);

    /// `group` is the group the tile stands in, nullptr for pinned and background tiles;
    /// `tileFrame` is the tile's frame in screen coordinates.
    void click(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame,
               ClickModifiers modifiers = {});

  private:
    /// A click as it was found, so that the steps judge one and the same state.
    struct Clicked {
        const DockItem& item;
        const DisplayGroup* group;
        const Rect& tileFrame;
        ProcessId pid = 0;
        bool isHidden = false;
        WindowAnimator::Phase phase = WindowAnimator::Phase::none;
        /// The app is to come forward, whatever it does now.
        bool onlyForward = false;
        /// Asked for at most once: an app that does not answer costs a whole time-out each time.
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
