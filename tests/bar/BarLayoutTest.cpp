#include "bar/BarLayout.h"

#include <gtest/gtest.h>

#include <cmath>

namespace larkspan {

namespace {

std::vector<BarTile> apps(int count) {
    std::vector<BarTile> tiles;
    for (int i = 0; i < count; ++i)
        tiles.push_back({.section = BarTile::Section::windows,
                         .content = AppTile{{.id = std::to_string(i)}, Slot{1, SpaceId{1}}}});
    return tiles;
}

constexpr BarLayoutInput island{
    .panel = {1440, 72}, .style = BarStyle::island, .roundness = 0.68, .padding = 14};

} // namespace

TEST(BarLayout, NothingIsCutOffHoweverManyTilesThereAre) {
    for (const BarStyle style : {BarStyle::bar, BarStyle::island}) {
        for (int count = 0; count <= 300; ++count) {
            BarLayoutInput input = island;
            input.style = style;
            const BarLayout layout = layOutBar(apps(count), input);
            EXPECT_GE(layout.glass.x, 0) << count;
            EXPECT_LE(layout.glass.maxX(), 1440) << count;
            EXPECT_GE(layout.viewX, layout.glass.x) << count;
            EXPECT_LE(layout.viewX + layout.viewWidth, layout.glass.maxX()) << count;
            EXPECT_GE(layout.iconSize, 24) << count;
            // It scrolls only when the tiles cannot shrink any more.
            if (layout.scrolls()) {
                EXPECT_EQ(layout.iconSize, 24) << count;
            }
        }
    }
}

TEST(BarLayout, TilesOfASectionTouchAndDoNotOverlap) {
    const BarLayout layout = layOutBar(apps(12), island);
    for (std::size_t i = 1; i < layout.tileX.size(); ++i)
        EXPECT_EQ(layout.tileX[i], layout.tileX[i - 1] + layout.tileWidth);
}

TEST(BarLayout, EveryLengthIsWhole) {
    for (const double height : {40.0, 61.0, 72.0, 100.0}) {
        BarLayoutInput input = island;
        input.panel.height = height;
        const BarLayout layout = layOutBar(apps(7), input);
        for (const double length : {layout.glass.x, layout.glass.width, layout.iconSize,
                                    layout.iconTop, layout.viewX, layout.tileX[3]})
            EXPECT_EQ(length, std::round(length)) << height;
    }
}

TEST(BarLayout, RoundnessGoesFromSquareCornersToHalfCircles) {
    BarLayoutInput input = island;
    input.roundness = 0;
    EXPECT_EQ(layOutBar(apps(3), input).radius, 0);
    input.roundness = 1;
    const BarLayout layout = layOutBar(apps(3), input);
    EXPECT_EQ(layout.radius, layout.glass.height / 2);
}

TEST(BarLayout, InsetLiftsTheIslandAndKeepsItOnThePanel) {
    const double low = layOutBar(apps(3), island).glass.maxY();
    for (const double inset : {8.0, 30.0, 500.0}) {
        BarLayoutInput input = island;
        input.inset = inset;
        const BarLayout layout = layOutBar(apps(3), input);
        EXPECT_LT(layout.glass.maxY(), low) << inset;
        EXPECT_GE(layout.glass.y, 0) << inset;
        EXPECT_LE(layout.iconSize, layout.glass.height) << inset;
    }
}

TEST(BarLayout, ADividerStandsBetweenSectionsAndARingAroundAHiddenDesktop) {
    std::vector<BarTile> tiles = apps(2);
    for (BarTile tile : apps(2)) {
        std::get<AppTile>(tile.content).slot = Slot{1, SpaceId{2}};
        tile.isRing = true;
        tiles.push_back(tile);
    }
    tiles.push_back({.section = BarTile::Section::trash, .content = TrashTile{}});
    const BarLayout layout = layOutBar(tiles, island);
    ASSERT_EQ(layout.marks.size(), 2U);
    EXPECT_EQ(layout.marks[0],
              (BarMark{BarMark::Kind::ring, layout.tileX[2], 2 * layout.tileWidth}));
    EXPECT_EQ(layout.marks[1].kind, BarMark::Kind::divider);
    EXPECT_GT(layout.marks[1].x, layout.tileX[3] + layout.tileWidth);
    EXPECT_LT(layout.marks[1].x, layout.tileX[4]);
}

TEST(BarLayout, MirroredBarStartsAtTheRight) {
    BarLayoutInput input = island;
    input.isMirrored = true;
    const BarLayout layout = layOutBar(apps(4), input);
    EXPECT_EQ(layout.tileX.front() + layout.tileWidth, layout.contentWidth);
    EXPECT_EQ(layout.tileX.back(), 0);
}

} // namespace larkspan
