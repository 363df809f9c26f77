#include "bar/BarLayout.h"

#include <algorithm>
#include <cmath>

namespace larkspan {

namespace {

/// Room around an island for its shadow, and between it and the screen's bottom at inset 0.
constexpr double islandMargin = 5;
/// Steps rather than any size: a crowded bar scales its icons again only at a step.
constexpr double iconStep = 8;
constexpr double smallestIcon = 24;
constexpr double largestIcon = 128;
/// The paddles at the ends of a bar that scrolls.
constexpr double paddleWidth = 26;
/// The band's tiles stand as far from its edges as an island's from the glass by default.
constexpr double bandPadding = 14;

struct Gaps {
    double tile;    // around an icon, both sides together
    double group;   // between groups of a section
    double section; // between sections, with the divider in its middle
};

Gaps gapsFor(double iconSize) {
    const double tile = std::max(4.0, std::round(iconSize * 0.19));
    return {tile, std::round(tile * 1.2), std::round(tile * 1.2) * 2 + 1};
}

enum class Boundary { none, group, section };

Boundary boundary(const BarTile& before, const BarTile& after) {
    if (before.section != after.section) return Boundary::section;
    return before.slot() != after.slot() ? Boundary::group : Boundary::none;
}

/// Tiles and marks one after the other from x = 0, for one icon size.
void placeTiles(BarLayout& layout, const std::vector<BarTile>& tiles) {
    const Gaps gaps = gapsFor(layout.iconSize);
    layout.tileWidth = layout.iconSize + gaps.tile;
    layout.tileX.clear();
    layout.marks.clear();
    double x = 0;
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const Boundary edge = i == 0 ? Boundary::none : boundary(tiles[i - 1], tiles[i]);
        if (edge == Boundary::section) {
            layout.marks.push_back({BarMark::Kind::divider, x + std::floor(gaps.section / 2), 1});
            x += gaps.section;
        } else if (edge == Boundary::group) {
            x += gaps.group;
        }
        layout.tileX.push_back(x);
        x += layout.tileWidth;
        if (!tiles[i].isRing) continue;
        if (edge == Boundary::none && i > 0 && tiles[i - 1].isRing)
            layout.marks.back().width += layout.tileWidth;
        else
            layout.marks.push_back({BarMark::Kind::ring, x - layout.tileWidth, layout.tileWidth});
    }
    layout.contentWidth = x;
}

void mirror(BarLayout& layout) {
    for (double& x : layout.tileX)
        x = layout.contentWidth - x - layout.tileWidth;
    for (BarMark& mark : layout.marks)
        mark.x = layout.contentWidth - mark.x - mark.width;
}

/// What the panel's size and the look leave to the tiles.
struct Room {
    double top;
    double height;
    double endPadding;
    double widestGlass;
    double iconSize;
};

Room roomIn(const BarLayoutInput& input) {
    const double panelHeight = input.panel.height;
    if (input.style == BarStyle::bar) {
        const double icon = std::floor(panelHeight * 0.68 / 2) * 2;
        return {0, panelHeight, bandPadding, input.panel.width, std::min(icon, largestIcon)};
    }
    const double bottom = islandMargin + std::clamp(input.inset, 0.0, panelHeight / 2);
    const double height = std::max(16.0, std::round(panelHeight - bottom - 1));
    const double padding = std::max(0.0, input.padding);
    // The ends of the tiles bring some room of their own, and above and below it takes less than
    // at the ends to look the same.
    const double icon = std::floor((height - std::min(padding * 1.3, height * 0.6)) / 2) * 2;
    return {1, height, std::round(padding * 0.75), input.panel.width - 2 * islandMargin,
            std::clamp(icon, 12.0, largestIcon)};
}

void shrinkToFit(BarLayout& layout, const std::vector<BarTile>& tiles, double width) {
    placeTiles(layout, tiles);
    while (layout.contentWidth > width && layout.iconSize > smallestIcon) {
        const double step = std::ceil(layout.iconSize / iconStep - 1) * iconStep;
        layout.iconSize = std::max(smallestIcon, step);
        placeTiles(layout, tiles);
    }
}

} // namespace

Rect BarLayout::tileFrame(std::size_t tile, double scrollX) const {
    return {viewX - scrollX + tileX[tile], glass.y, tileWidth, glass.height};
}

Rect onScreen(const Rect& part, double panelHeight, const Rect& screenFrame) {
    return {screenFrame.x + part.x, screenFrame.y + panelHeight - part.maxY(), part.width,
            part.height};
}

BarLayout layOutBar(const std::vector<BarTile>& tiles, const BarLayoutInput& input) {
    const Room room = roomIn(input);
    BarLayout layout;
    layout.iconSize = room.iconSize;
    const double widestView = room.widestGlass - 2 * room.endPadding;
    shrinkToFit(layout, tiles, widestView);
    if (input.isMirrored) mirror(layout);

    const double needed = layout.contentWidth + 2 * room.endPadding;
    double glassWidth =
        input.style == BarStyle::bar ? input.panel.width : std::min(needed, room.widestGlass);
    glassWidth = std::round(glassWidth);
    layout.glass = {std::floor((input.panel.width - glassWidth) / 2), room.top, glassWidth,
                    room.height};
    const double roundness = std::clamp(input.roundness, 0.0, 1.0);
    layout.radius = input.style == BarStyle::bar ? 0 : room.height / 2 * roundness;

    layout.viewWidth = std::min(layout.contentWidth, widestView);
    if (layout.contentWidth > widestView) layout.viewWidth = glassWidth - 2 * paddleWidth;
    layout.viewX = layout.glass.x + std::floor((layout.glass.width - layout.viewWidth) / 2);
    // A point higher than the middle: the dot below is part of what the eye centres.
    layout.iconTop = room.top + std::floor((room.height - layout.iconSize) / 2) - 1;
    return layout;
}

} // namespace larkspan
