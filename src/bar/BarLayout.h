#pragma once

#include "bar/BarTile.h"
#include "platform/Geometry.h"
#include "settings/BarLook.h"

#include <cstddef>
#include <vector>

namespace larkspan {

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
    /// The left edge of each tile, in content coordinates.
    std::vector<double> tileX;
    std::vector<BarMark> marks;

    bool scrolls() const { return contentWidth > viewWidth; }
    double scrollRange() const { return scrolls() ? contentWidth - viewWidth : 0; }
    /// Where the tile stands in the panel when that many points are scrolled away; outside the
    /// view when it is not to be seen.
    Rect tileFrame(std::size_t tile, double scrollX) const;
    bool operator==(const BarLayout&) const = default;
};

/// Tiles keep their natural size while they fit, then shrink in steps, then the bar scrolls.
BarLayout layOutBar(const std::vector<BarTile>& tiles, const BarLayoutInput& input);

/// A part of a panel of that height, which stands at the bottom of the screen, in screen
/// coordinates.
Rect onScreen(const Rect& part, double panelHeight, const Rect& screenFrame);

} // namespace larkspan
