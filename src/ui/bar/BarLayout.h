#pragma once

#include "platform/Geometry.h"
#include "settings/BarLook.h"
#include "ui/bar/TileRow.h"

#include <vector>

namespace larkspan::ui {

// Rectangles here are in the panel's own points, from its top left.

struct BarLayoutInput {
    /// The panel's size.
    Size panel;
    BarStyle style = BarStyle::island;
    double roundness = 0;
    double inset = 0;
    double padding = 0;
    /// Whether the first tile stands at the right.
    bool isMirrored = false;
};

/// Something drawn between or around tiles: a line between sections, or the ring around a group.
struct BarMark {
    enum class Kind { divider, ring };
    Kind kind = Kind::divider;
    double x = 0;
    double width = 0;
    bool operator==(const BarMark&) const = default;
};

/// Where everything of a bar stands. Every length is whole, so that pictures stay sharp.
struct BarLayout {
    /// The visible bar: the island, or the whole panel.
    Rect glass;
    double radius = 0;
    double iconSize = 0;
    /// The width of a tile; neighbours touch, so that no click falls between two.
    double tileWidth = 0;
    double iconTop = 0;
    /// The part of the panel in which tiles show; narrower than all of them when the bar scrolls.
    double viewX = 0;
    double viewWidth = 0;
    double contentWidth = 0;
    /// The left edge of each row's tile, in content coordinates.
    std::vector<double> tileX;
    std::vector<BarMark> marks;

    bool scrolls() const { return contentWidth > viewWidth; }
    bool operator==(const BarLayout&) const = default;
};

/// Tiles keep their natural size while they fit, then shrink in steps, then the bar scrolls.
BarLayout layOutBar(const std::vector<TileRow>& rows, const BarLayoutInput& input);

} // namespace larkspan::ui
