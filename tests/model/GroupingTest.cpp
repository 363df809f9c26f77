#include "model/Grouping.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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

struct PlaceCase {
    const char* name;
    AppPlaces places;
    std::set<Slot> slots;
};

class PlacesOfAnApp : public testing::TestWithParam<PlaceCase> {};

TEST_P(PlacesOfAnApp, AreWhereItIsThenWhereItWas) {
    EXPECT_EQ(slotsForApp(GetParam().places, BarSlots(screens, twoDisplays())), GetParam().slots);
}

const std::set<Slot> seenElsewhere{{1, 11}, {2, 20}};

INSTANTIATE_TEST_SUITE_P(
    Precedence, PlacesOfAnApp,
    testing::Values(
        PlaceCase{"CurrentBeforeAll",
                  {.slots = {{1, 10}, {2, 20}}, .previous = {{1, 11}}, .seenSlots = {{1, 12}}},
                  {{1, 10}, {2, 20}}},
        PlaceCase{"AWindowOnASpaceNotShownIsCurrent",
                  {.slots = {{1, 10}}, .previous = {{1, 11}}, .seenSlots = seenElsewhere},
                  {{1, 10}}},
        PlaceCase{"HiddenStaysWhereItStands",
                  {.previous = {{1, 10}}, .seenSlots = {{1, 10}, {1, 11}, {2, 20}}},
                  {{1, 10}}},
        PlaceCase{"HiddenStaysInEachOfItsGroups",
                  {.previous = {{1, 10}, {2, 20}}, .seenSlots = seenElsewhere},
                  {{1, 10}, {2, 20}}},
        PlaceCase{"AClosedSpaceGivesWayToTheShownOneOfItsDisplay",
                  {.previous = {{1, 99}}, .seenSlots = {{1, 99}, {1, 10}, {2, 20}}},
                  {{1, 11}}},
        PlaceCase{"AClosedSpaceOfSeveralGivesWayAlone",
                  {.previous = {{1, 99}, {1, 10}}, .seenSlots = {{2, 20}}},
                  {{1, 10}, {1, 11}}},
        PlaceCase{"ASpaceIsFollowedToAnotherDisplay",
                  {.previous = {{3, 10}}, .seenSlots = {{3, 10}, {2, 20}}, .seenDisplays = {2, 3}},
                  {{1, 10}}},
        PlaceCase{"AnUnpluggedDisplayGivesWayToTheMainOne",
                  {.previous = {{3, 30}}, .seenSlots = {{3, 30}, {2, 20}}, .seenDisplays = {2, 3}},
                  {{1, 11}}},
        PlaceCase{"AnUnpluggedDisplayOfSeveralIsLeftOut",
                  {.previous = {{3, 30}, {2, 20}}, .seenSlots = {{1, 11}}},
                  {{2, 20}}},
        PlaceCase{"CurrentSlotsThatHaveGoneGiveWayToTheGroupItStandsIn",
                  {.slots = {{3, 30}}, .previous = {{2, 20}}, .seenSlots = {{1, 10}}},
                  {{2, 20}}},
        PlaceCase{
            "RememberedOnTheShownSpace", {.seenSlots = {{1, 10}, {1, 11}, {2, 20}}}, {{1, 11}}},
        PlaceCase{"RememberedFirstAlongTheBar", {.seenSlots = {{1, 12}, {1, 10}}}, {{1, 10}}},
        PlaceCase{"RememberedDisplayWhoseSpacesAreOthers",
                  {.seenSlots = {{2, 99}}, .seenDisplays = {2}},
                  {{2, 20}}},
        PlaceCase{"RememberedDisplayThatHasGone",
                  {.seenSlots = {{3, 30}}, .seenDisplays = {3}},
                  {{1, 11}}},
        PlaceCase{"NothingKnown", {}, {{1, 11}}}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST(PlacesOfAnAppWithoutScreens, AreNone) {
    EXPECT_TRUE(slotsForApp({.slots = {{1, 10}}}, BarSlots({}, {})).empty());
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
