#include "bar/TileName.h"

#include "bar/barTiles.h"

namespace larkspan {

std::optional<int> TileName::fit(const BarTile& tile, DisplayId barDisplay) const {
    if (tile.id() != id) return std::nullopt;
    const auto slot = tile.slot();
    if (space && (!slot || slot->space != space)) return std::nullopt;
    if (display && (slot ? slot->display : barDisplay) != display) return std::nullopt;
    const bool isOnOwnBar = slot && slot->display == barDisplay;
    return 2 * rankOf(tile) + (isOnOwnBar ? 1 : 0);
}

std::optional<std::size_t> TileName::bestOf(const std::vector<BarTile>& tiles,
                                            DisplayId barDisplay) const {
    std::optional<std::size_t> best;
    std::optional<int> bestFit;
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const auto each = fit(tiles[i], barDisplay);
        // Absent is less than any number, and the first of equals is kept.
        if (each <= bestFit) continue;
        bestFit = each;
        best = i;
    }
    return best;
}

std::optional<TileOnBar> findTile(const std::vector<BarController::Bar>& bars,
                                  const TileName& name) {
    std::optional<TileOnBar> best;
    std::optional<int> bestFit;
    for (const auto& bar : bars) {
        bar.interaction->catchUp();
        const auto& tiles = bar.interaction->tiles();
        const auto tile = name.bestOf(tiles, bar.screen.display);
        const auto fit = tile ? name.fit(tiles[*tile], bar.screen.display) : std::nullopt;
        if (fit <= bestFit) continue;
        bestFit = fit;
        best = {bar.interaction.get(), static_cast<int>(*tile)};
    }
    return best;
}

} // namespace larkspan
