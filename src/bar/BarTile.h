#pragma once

#include "model/DockItem.h"
#include "spaces/Slot.h"

#include <optional>
#include <string>
#include <variant>

namespace larkspan {

/// An app on a bar.
struct AppTile {
    DockItem item;
    /// The place of the group that it stands in; absent outside the windows section.
    std::optional<Slot> slot;

    bool operator==(const AppTile&) const = default;
};

/// The Trash on a bar.
struct TrashTile {
    bool isEmpty = true;

    bool operator==(const TrashTile&) const = default;
};

/// One tile of one bar: what it stands for and how it is marked.
struct BarTile {
    enum class Section { pinned, windows, background, trash };
    enum class Dot { none, first, gray };
    /// Each kind of tile is one alternative. What depends on the kind visits it, so that a new kind
    /// cannot be forgotten anywhere.
    using Content = std::variant<AppTile, TrashTile>;

    Section section = Section::pinned;
    Content content;
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

    /// Nullptr for a tile of another kind.
    const AppTile* app() const { return std::get_if<AppTile>(&content); }
    /// The group's place; absent for a tile that stands in none.
    std::optional<Slot> slot() const;
    /// By which scripts name it: that of the app's item, or "trash". An app may have several tiles.
    std::string id() const;
    /// What a person reads above it.
    std::string name() const;
    /// Where the tile stands and what it stands for: distinct within a bar.
    std::string key() const;

    bool operator==(const BarTile&) const = default;
};

} // namespace larkspan
