#pragma once

#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "spaces/SpaceMap.h"

#include <string>
#include <vector>

namespace larkspan {

/// The type number of a full-screen Space.
inline constexpr int fullScreenSpaceType = 4;
/// What the window server calls the only display it manages when all displays share their Spaces.
inline constexpr const char* sharedSpacesIdentifier = "Main";

/// The Spaces of the displays among `screens`, with the windows on each. Spaces that all displays
/// share stand under every one of them and belong to the first. Left out are entries
/// without an identifier, displays that are no screen, and what is listed a second time; a Space of
/// unknown type is no desktop. Any thread.
SpaceMap readSpaceMap(const WindowServer& server, const std::vector<ManagedDisplay>& displays,
                      const std::vector<Screen>& screens);

} // namespace larkspan
