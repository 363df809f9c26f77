#pragma once

#include "bar/BarController.h"
#include "bar/BarTile.h"
#include "platform/Identifiers.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace larkspan {

/// A tile as a command or a scenario names it.
struct TileName {
    std::string id;
    /// Which is meant of the tiles of that id: one of the groups of that display, or, of a tile
    /// that stands in no group, the one on the bar of that display.
    std::optional<DisplayId> display;
    /// The one in the group of that Space.
    std::optional<SpaceId> space;

    /// How well the name fits the tile on the bar of that display, as numbers to compare; absent
    /// when another is meant.
    std::optional<int> fit(const BarTile& tile, DisplayId barDisplay) const;
    /// The place of the tile that it fits best; absent when it fits none.
    std::optional<std::size_t> bestOf(const std::vector<BarTile>& tiles,
                                      DisplayId barDisplay) const;
};

struct TileOnBar {
    BarInteraction* bar = nullptr;
    int tile = BarInteraction::noTile;
};

/// The tile that is meant, on the bar of its display if there is one; absent when no bar has such a
/// tile.
std::optional<TileOnBar> findTile(const std::vector<BarController::Bar>& bars,
                                  const TileName& name);

} // namespace larkspan
