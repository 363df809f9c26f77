#pragma once

#include "model/DockStore.h"
#include "settings/BarLook.h"

#include <optional>
#include <string>
#include <vector>

namespace larkspan::ui {

/// What one tile of one bar shows, ready to be drawn.
struct TileRow {
    enum class Section { pinned, windows, background, trash };
    enum class Dot { none, first, gray };

    Section section = Section::pinned;
    DockItem item;
    /// The place of a window app's group; absent in the other sections.
    std::optional<Slot> slot;
    /// The group's Space is not the one shown: drawn quieter, inside a ring.
    bool isRing = false;
    Dot dot = Dot::none;
    bool isFront = false;
    bool isLaunching = false;
    bool wantsAttention = false;
    /// As the app gave it; empty for none.
    std::string badge;
    /// It has just been opened from its pinned tile.
    bool fliesIn = false;

    /// Where the tile stands and whose it is: distinct within a bar, since an app may stand in
    /// several groups and be pinned besides.
    std::string key() const;
    bool operator==(const TileRow&) const = default;
};

/// The id of the Trash tile's item.
inline constexpr const char* trashIdentifier = "com.tessaly.Vantrel.trash";

/// The tiles of the bar on `display`, from the leading edge: pinned apps, window apps by group, the
/// background apps that are not pinned, the Trash.
std::vector<TileRow> tileRows(const DockStore& store, DisplayId display, bool showsTrash);

} // namespace larkspan::ui
