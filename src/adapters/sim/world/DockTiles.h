#pragma once

#include "adapters/sim/world/World.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::sim {

/// A tile on the system Dock, as it is at this moment.
struct DockTile {
    /// The same for as long as the tile stands there.
    std::string key;
    std::string subrole = "AXApplicationDockItem";
    std::string title;
    /// Empty for a tile that stands for no file.
    std::string url;
    /// Display coordinates (y downwards).
    Rect frame;
    std::string badge;
    bool isRunning = false;
};

/// The tiles in their order: Finder, the pinned apps, the other regular apps that run, the Trash.
/// Those of apps that are being launched or want attention are in the air part of the time.
std::vector<DockTile> dockTiles(const World& world);
/// Absent when no tile of that key stands there any more.
std::optional<DockTile> dockTile(const World& world, std::string_view key);

} // namespace larkspan::sim
