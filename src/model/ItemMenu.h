#pragma once

#include "model/DockStore.h"
#include "platform/Accessibility.h"
#include "platform/Menu.h"
#include "platform/Workspace.h"

namespace larkspan {

/// The menu above a tile, built anew each time it opens. Main thread only.
class ItemMenu {
  public:
    ItemMenu(DockStore& store, ApplicationControl& applications, Accessibility& accessibility);

    Menu menu(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame) const;
};

} // namespace larkspan
