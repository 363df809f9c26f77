#include "bar/TileName.h"

#include "bar/barTiles.h"

#include <gtest/gtest.h>

namespace larkspan {
namespace {

BarTile tile(BarTile::Section section, std::optional<Slot> slot = {}, bool isRing = false) {
    const RunningApplication app{.pid = 7};
    return {.section = section,
            .content = AppTile{{.id = "notes", .app = app}, slot},
            .isRing = isRing};
}

const std::vector<BarTile> notesTwiceAndTrash = {
    tile(BarTile::Section::pinned),
    tile(BarTile::Section::windows, Slot{1, SpaceId{12}}, true),
    tile(BarTile::Section::windows, Slot{2, SpaceId{21}}),
    {.section = BarTile::Section::trash, .content = TrashTile{}}};

TEST(TileName, MeansTheShownGroupBeforeAnotherAndTheNamedOneBeforeAll) {
    using Place = std::optional<std::size_t>;
    const std::pair<TileName, Place> cases[] = {
        {{.id = "notes"}, 2},
        {{.id = "notes", .display = 1}, 1},
        {{.id = "notes", .space = 12}, 1},
        {{.id = "notes", .display = 2, .space = 12}, std::nullopt},
        {{.id = "notes", .display = 3}, 0},
        {{.id = "trash"}, 3},
        {{.id = "trash", .display = 3}, 3},
        {{.id = "trash", .display = 1}, std::nullopt},
        {{.id = "mail"}, std::nullopt},
    };
    for (const auto& [name, place] : cases)
        EXPECT_EQ(name.bestOf(notesTwiceAndTrash, 3), place)
            << name.id << " " << name.display.value_or(0) << " " << name.space.value_or(0);
    EXPECT_EQ(tilesOfApps(notesTwiceAndTrash), (std::map<ProcessId, std::size_t>{{7, 2}}));
}

TEST(TileName, FitsBestOnTheBarOfTheGroupsDisplay) {
    const TileName name{.id = "notes"};
    EXPECT_GT(name.fit(notesTwiceAndTrash[2], 2), name.fit(notesTwiceAndTrash[2], 1));
    EXPECT_GT(name.fit(notesTwiceAndTrash[2], 1), name.fit(notesTwiceAndTrash[1], 1))
        << "a shown group comes first";
}

} // namespace
} // namespace larkspan
