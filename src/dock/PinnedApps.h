#pragma once

#include "platform/ApplicationControl.h"
#include "platform/DockPreferences.h"
#include "platform/Workspace.h"

#include <string>
#include <vector>

namespace larkspan {

/// The bundle identifiers of the apps in the Dock's own list, in Dock order, as the Dock last wrote
/// it. Entries that are not apps (spacers, damaged entries) are omitted. Main thread only.
std::vector<std::string> pinnedAppIdentifiers(DockPreferences& dock);

/// Sets the Dock's list to exactly these apps in this order, and restarts the Dock so that it reads
/// the list. Remaining entries keep everything that the Dock stored with them; entries that are not
/// apps stay behind the same app. Main thread only.
void writePinnedApps(DockPreferences& dock, Workspace& workspace, ApplicationControl& applications,
                     const std::vector<std::string>& identifiers);

} // namespace larkspan
