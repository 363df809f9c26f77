#pragma once

#include "platform/Identifiers.h"

#include <map>
#include <set>
#include <vector>

namespace larkspan {

/// The Spaces as the window server lists them.
struct SpaceMap {
    /// The Spaces of each display, in order.
    std::map<DisplayId, std::vector<SpaceId>> spaces;
    /// The first desktop among the Spaces of each display.
    std::map<DisplayId, SpaceId> firstDesktops;
    std::set<SpaceId> fullScreen;
    /// The Spaces that are shown now, one on each display.
    std::set<SpaceId> shown;
    std::map<SpaceId, DisplayId> owners;
    std::map<SpaceId, std::vector<WindowId>> windows;
    std::map<WindowId, std::vector<SpaceId>> windowSpaces;

    bool operator==(const SpaceMap&) const = default;
};

} // namespace larkspan
