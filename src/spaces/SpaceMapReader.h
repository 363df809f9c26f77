#pragma once

#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "spaces/SpaceMap.h"

#include <string>
#include <vector>

namespace larkspan {

/// The type number of a full-screen Space.
inline constexpr int fullScreenSpaceType = 4;
/// The window server's name for the only display it manages if all displays share their Spaces.
inline constexpr const char* sharedSpacesIdentifier = "Main";

/// The Spaces of the displays in `screens`, with the windows on each. Spaces that all displays
/// share are listed for each of them and belong to the first. Entries without an identifier,
/// displays that are not screens, and duplicates are omitted; a Space of unknown type is not a
/// desktop. Any thread.
SpaceMap readSpaceMap(const WindowServer& server, const std::vector<ManagedDisplay>& displays,
                      const std::vector<Screen>& screens);

} // namespace larkspan
