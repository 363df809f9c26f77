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

/// What can be done with the app of a tile: the one place behind clicks, menus and scripts. An
/// action that makes no sense for the item does nothing. Main thread only.
class ItemActions {
  public:
    ItemActions(DockStore& store, Scheduler& scheduler, Workspace& workspace,
                ApplicationControl& applications, Accessibility& accessibility, CoreDock& dock,
                LoginItems& loginItems);

    /// Launches the app and marks its tile, which stands there on the screen, until it has come;
    /// brings it forward when it runs.
    void open(const DockItem& item, const Rect& tileFrame);
    void openNewInstance(const DockItem& item, const Rect& tileFrame);
    bool openFiles(const std::vector<std::string>& files, const DockItem& item);
    void showInFinder(const DockItem& item);

    /// Shows the app again if it is hidden, and brings it forward.
    void show(const DockItem& item);
    /// Brings the window before all others, with its app; a minimised one comes back.
    void bringForward(const AppWindow& window);
    /// Spreads out the app's windows; where the system cannot, brings all of them forward, the
    /// minimised ones too.
    void showAllWindows(const DockItem& item);
    /// Every app that has windows, except this one.
    void hideOthers(std::optional<ProcessId> than);
    void quit(ProcessId pid);
    void forceQuit(ProcessId pid);

    /// Keeps the app in the Dock. False when there is no such application.
    bool keep(const std::string& id);
    /// False when it was not kept, or always is.
    bool remove(const std::string& id);
    /// Absent where that cannot be known and changed.
    std::optional<bool> opensAtLogin(const DockItem& item) const;
    bool setOpensAtLogin(const DockItem& item, bool opens);

    // The steps of bringing an app forward, for whoever decides which are needed.

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
    /// Ends the launching mark of an app that never comes.
    std::map<std::string, Handle> launchLimits_;
    /// While an app is on its way to the front, where its windows are to be spread out.
    Handle comingForward_;
    Handle comingForwardLimit_;
};

} // namespace larkspan
