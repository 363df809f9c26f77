#pragma once

#include "adapters/sim/world/World.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::sim {

/// A tile on the system Dock, as it is at this moment.
struct DockTile {
    /// Does not change while the tile exists.
    std::string key;
    std::string subrole = "AXApplicationDockItem";
    std::string title;
    /// Empty for a tile without a file.
    std::string url;
    /// Display coordinates (y downwards).
    Rect frame;
    std::string badge;
    bool isRunning = false;
};

/// The tiles in order: Finder, the pinned apps, the other running regular apps, the Trash. Those of
/// apps that are launching or want attention are in the air part of the time.
std::vector<DockTile> dockTiles(const World& world);
/// Absent if there is no tile with that key any more.
std::optional<DockTile> dockTile(const World& world, std::string_view key);

} // namespace larkspan::sim
