#pragma once

#include "platform/ApplicationControl.h"
#include "platform/DockPreferences.h"
#include "platform/Workspace.h"

#include <string>
#include <vector>

namespace larkspan {

/// The bundle identifiers of the apps in the Dock's own list, in Dock order, as the Dock last wrote
/// it. Entries that are no app (spacers, damaged entries) are left out. Main thread only.
std::vector<std::string> pinnedAppIdentifiers(DockPreferences& dock);

/// Makes the Dock's list hold exactly these apps in this order, and restarts the Dock so that it
/// reads the list. Entries that stay keep everything the Dock stored with them; entries that are no
/// app stay behind the app they stood behind. Main thread only.
void writePinnedApps(DockPreferences& dock, Workspace& workspace, ApplicationControl& applications,
                     const std::vector<std::string>& identifiers);

} // namespace larkspan
