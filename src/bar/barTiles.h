#pragma once

#include "bar/BarTile.h"
#include "model/DockStore.h"

#include <cstddef>
#include <map>
#include <vector>

namespace larkspan {

/// The tiles of the bar on `display`, from the leading edge: pinned apps, window apps by group, the
/// background apps that are not pinned, the Trash.
std::vector<BarTile> barTiles(const DockStore& store, DisplayId display, bool showsTrash);

/// Which of an app's tiles is meant where only the app is named: the one with the highest rank,
/// that of a group whose Space is shown before that of another group, and both before any other.
int rankOf(const BarTile& tile);

/// For each app that runs, which of the tiles stands for it.
std::map<ProcessId, std::size_t> tilesOfApps(const std::vector<BarTile>& tiles);

} // namespace larkspan
