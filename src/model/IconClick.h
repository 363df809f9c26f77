#pragma once

#include "diagnostics/DiagnosticsLog.h"
#include "model/DockStore.h"
#include "platform/Accessibility.h"
#include "platform/Geometry.h"
#include "platform/Scheduler.h"
#include "platform/Workspace.h"

namespace larkspan {

/// What a left click on a tile does. Main thread only.
class IconClick {
  public:
    IconClick(DockStore& store, Scheduler& scheduler, Workspace& workspace,
              ApplicationControl& applications, Accessibility& accessibility, DiagnosticsLog& log);

    /// `group` is the group the tile stands in, nullptr for pinned and background tiles;
    /// `tileFrame` is the tile's frame in screen coordinates.
    void click(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame);
};

} // namespace larkspan
