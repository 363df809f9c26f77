#pragma once

#include "platform/Screens.h"
#include "spaces/AppWindow.h"
#include "spaces/Slot.h"
#include "spaces/SpaceMap.h"

#include <optional>
#include <vector>

namespace larkspan {

/// The app's windows in the slot, in their order. A minimised window is on no Space: it counts for
/// every slot of the display it was on.
std::vector<AppWindow> windowsInSlot(std::vector<AppWindow> windows, const Slot& slot,
                                     const std::optional<SpaceMap>& map,
                                     const std::vector<Screen>& screens);

} // namespace larkspan
