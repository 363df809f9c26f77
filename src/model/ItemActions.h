#pragma once

#include "model/DockStore.h"
#include "platform/Accessibility.h"
#include "platform/ApplicationControl.h"
#include "platform/CoreDock.h"
#include "platform/LoginItems.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"
#include "spaces/AppWindow.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace larkspan {

/// What can be done with the app of a tile, for clicks, menus and scripts. An action that does not
/// apply to the item has no effect. Main thread only.
class ItemActions {
  public:
    ItemActions(DockStore& store, Scheduler& scheduler, Workspace& workspace,
                ApplicationControl& applications, Accessibility& accessibility, CoreDock& dock,
                LoginItems& loginItems);

    /// Launches the app and marks its tile, which has that frame, until it has launched; brings it
    /// forward if it is running.
    void open(const DockItem& item, const Rect& tileFrame);
    void openNewInstance(const DockItem& item, const Rect& tileFrame);
    bool openFiles(const std::vector<std::string>& files, const DockItem& item);
    void showInFinder(const DockItem& item);

    /// Shows the app again if it is hidden, and brings it forward.
    void show(const DockItem& item);
    /// Brings the window in front of all others, with its app; restores a minimised one.
    void bringForward(const AppWindow& window);
    /// Spreads out the app's windows; if the system cannot, brings all of them forward, including
    /// the minimised ones.
    void showAllWindows(const DockItem& item);
    /// Hides every app that has windows, except this one.
    void hideOthers(std::optional<ProcessId> than);
    void quit(ProcessId pid);
    void forceQuit(ProcessId pid);

    /// Pins the app. Returns false if there is no such application.
    bool keep(const std::string& id);
    /// Returns false if it was not pinned, or cannot be unpinned.
    bool remove(const std::string& id);
    /// Absent if the system does not let programs read and change it.
    std::optional<bool> opensAtLogin(const DockItem& item) const;
    bool setOpensAtLogin(const DockItem& item, bool opens);

    // The steps of bringing an app forward; the caller decides which are needed.

    void activate(ProcessId pid);
    void makeMain(const AXElementRef& window);
    void restore(const std::vector<AppWindow>& windows);

  private:
    void spreadWindows(ProcessId pid);
    void spreadWindowsOfFrontApp();
    void bringAllForward(ProcessId pid);

    DockStore& store_;
    Scheduler& scheduler_;
    Workspace& workspace_;
    ApplicationControl& applications_;
    Accessibility& accessibility_;
    CoreDock& dock_;
    LoginItems& loginItems_;
    /// Removes the launching mark of an app that never appears.
    std::map<std::string, Handle> launchLimits_;
    /// While an app comes to the front whose windows will be spread out.
    Handle comingForward_;
    Handle comingForwardLimit_;
};

} // namespace larkspan
