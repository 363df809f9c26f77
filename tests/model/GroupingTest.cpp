#include "model/Grouping.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;

const std::vector<Screen> screens{{.display = 1}, {.display = 2}};

/// Display 1 has the desktops 10 and 11 and the full-screen Space 12, and shows 11; display 2 has
/// 20 and shows it.
SpaceMap twoDisplays() {
    SpaceMap map;
    map.spaces = {{1, {10, 11, 12}}, {2, {20}}};
    map.shown = {11, 20};
    map.fullScreen = {12};
    return map;
}

TEST(PlacesOfAnApp, AreWhereItIsThenWhereItWas) {
    const std::set<Slot> seenElsewhere{{1, 11}, {2, 20}};
    const struct {
        const char* name;
        AppPlaces places;
        std::set<Slot> slots;
    } cases[] = {
        {"current before all",
         {.slots = {{1, 10}, {2, 20}}, .previous = {{1, 11}}, .seenSlots = {{1, 12}}},
         {{1, 10}, {2, 20}}},
        {"a window on a Space not shown is current",
         {.slots = {{1, 10}}, .previous = {{1, 11}}, .seenSlots = seenElsewhere},
         {{1, 10}}},
        {"hidden stays where it stands",
         {.previous = {{1, 10}}, .seenSlots = {{1, 10}, {1, 11}, {2, 20}}},
         {{1, 10}}},
        {"hidden stays in each of its groups",
         {.previous = {{1, 10}, {2, 20}}, .seenSlots = seenElsewhere},
         {{1, 10}, {2, 20}}},
        {"a closed Space gives way to the shown one of its display",
         {.previous = {{1, 99}}, .seenSlots = {{1, 99}, {1, 10}, {2, 20}}},
         {{1, 11}}},
        {"a closed Space of several gives way alone",
         {.previous = {{1, 99}, {1, 10}}, .seenSlots = {{2, 20}}},
         {{1, 10}, {1, 11}}},
        {"a Space is followed to another display",
         {.previous = {{3, 10}}, .seenSlots = {{3, 10}, {2, 20}}, .seenDisplays = {2, 3}},
         {{1, 10}}},
        {"an unplugged display gives way to the main one",
         {.previous = {{3, 30}}, .seenSlots = {{3, 30}, {2, 20}}, .seenDisplays = {2, 3}},
         {{1, 11}}},
        {"an unplugged display of several is left out",
         {.previous = {{3, 30}, {2, 20}}, .seenSlots = {{1, 11}}},
         {{2, 20}}},
        {"current slots that have gone give way to the group it stands in",
         {.slots = {{3, 30}}, .previous = {{2, 20}}, .seenSlots = {{1, 10}}},
         {{2, 20}}},
        {"remembered on the shown Space", {.seenSlots = {{1, 10}, {1, 11}, {2, 20}}}, {{1, 11}}},
        {"remembered first along the bar", {.seenSlots = {{1, 12}, {1, 10}}}, {{1, 10}}},
        {"remembered display whose Spaces are others",
         {.seenSlots = {{2, 99}}, .seenDisplays = {2}},
         {{2, 20}}},
        {"remembered display that has gone",
         {.seenSlots = {{3, 30}}, .seenDisplays = {3}},
         {{1, 11}}},
        {"nothing known", {}, {{1, 11}}},
    };
    for (const auto& [name, places, slots] : cases)
        EXPECT_EQ(slotsForApp(places, BarSlots(screens, twoDisplays())), slots) << name;
    EXPECT_TRUE(slotsForApp({.slots = {{1, 10}}}, BarSlots({}, {})).empty()) << "no screens";
}

PlacedItem placed(std::string id, std::set<Slot> slots) {
    PlacedItem item;
    item.item.id = std::move(id);
    item.slots = std::move(slots);
    return item;
}

TEST(Groups, StandInBarOrderWithTheirItemsInAppOrder) {
    const BarSlots slots(screens, twoDisplays());
    const auto groups =
        groupItems({placed("b", {{2, 20}, {1, 10}}), placed("a", {{1, 10}})}, slots, false);
    ASSERT_EQ(groups.size(), 2U);
    EXPECT_EQ(groups[0].slot, (Slot{1, 10}));
    EXPECT_TRUE(groups[0].isRing) << "display 1 shows another Space";
    EXPECT_EQ(groups[0].items[0].id, "b");
    EXPECT_EQ(groups[0].items[1].id, "a");
    EXPECT_EQ(groups[1].slot, (Slot{2, 20}));
    EXPECT_FALSE(groups[1].isRing);
}

TEST(Groups, ShowEmptyDesktopsButNoEmptyFullScreenSpace) {
    std::vector<Slot> shown;
    for (const auto& group : groupItems({}, BarSlots(screens, twoDisplays()), true))
        shown.push_back(group.slot);
    EXPECT_THAT(shown, ElementsAre(Slot{1, 10}, Slot{1, 11}, Slot{2, 20}));
}

TEST(BarSlots, AreWholeDisplaysWhereNoSpacesAreKnown) {
    auto map = twoDisplays();
    map.spaces.erase(2);
    EXPECT_EQ(BarSlots(screens, map).inOrder().back(), (Slot{2, std::nullopt}));
    map.spaces[2] = {};
    EXPECT_EQ(BarSlots(screens, map).inOrder().back(), (Slot{2, std::nullopt}));
    EXPECT_THAT(BarSlots(screens, {}).inOrder(), ElementsAre(Slot{1, {}}, Slot{2, {}}));
}

} // namespace
} // namespace larkspan
