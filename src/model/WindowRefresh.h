#pragma once

#include "diagnostics/DiagnosticsLog.h"
#include "model/DockStore.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Shell.h"
#include "platform/SystemDock.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"
#include "spaces/WindowReader.h"

namespace larkspan {

/// Keeps a `DockStore` in step with the desktop: hears what changed, asks for window reads (one at
/// a time) and regroups after them. Main thread only.
class WindowRefresh {
  public:
    WindowRefresh(DockStore& store, Scheduler& scheduler, Workspace& workspace, Screens& screens,
                  WindowServer& server, DockPreferences& dock, TrashFolder& trash,
                  DiagnosticsLog& log);

    /// `rebuild` forces a regroup after the read even if nothing changed.
    void requestRead(bool rebuild);
    /// The pointer came onto a bar or left it.
    void setPointerOnBar(bool onBar);
};

} // namespace larkspan
