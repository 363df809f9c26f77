#pragma once

#include "model/DockStore.h"
#include "platform/Accessibility.h"
#include "platform/Menu.h"
#include "platform/Workspace.h"

namespace larkspan {

/// The menu above a tile, built anew each time it opens; it must not outlive this object. Main
/// thread only.
class ItemMenu {
  public:
    ItemMenu(DockStore& store, ApplicationControl& applications, Accessibility& accessibility);

    Menu menu(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame) const;

  private:
    Menu runningMenu(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame) const;
    Menu notRunningMenu(const DockItem& item) const;
    void addWindows(Menu& menu, ProcessId pid, const DisplayGroup* group) const;
    void addKeeping(Menu& menu, const DockItem& item) const;
    void addHiding(Menu& menu, const DockItem& item, const Rect& tileFrame) const;
    void addQuitting(Menu& menu, const DockItem& item) const;
    void bringForward(const AppWindow& window) const;
    void setKept(const std::string& id, bool isKept) const;

    DockStore& store_;
    ApplicationControl& applications_;
    Accessibility& accessibility_;
};

} // namespace larkspan
