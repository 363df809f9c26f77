#include "soak/day/DayRun.h"

#include <gtest/gtest.h>

namespace larkspan::soak {
namespace {

/// Days on which a rule was once broken, shortened as far as possible.
struct PastDay {
    const char* name;
    std::vector<Step> steps;
};

class PastDays : public testing::TestWithParam<PastDay> {};

TEST_P(PastDays, BreakNoRule) {
    const auto failure = live(GetParam().steps).failure;
    ASSERT_FALSE(failure) << failure->rule << "\n" << failure->detail;
}

// Each is the shortest list of steps that was found.
const PastDay pastDays[] = {
    {"AnAppThatWentUnheardIsForgotten",
     {{"openFromDisk", 7, 0}, {"loseEvents", 0, 0}, {"passTime", 7, 0}, {"quit", 7, 0}}},
    {"AnAppThatCameForwardUnheardIsInFront",
     {{"launch", 4, 0},
      {"launch", 0, 0},
      {"passTime", 6, 0},
      {"loseEvents", 0, 0},
      {"click", 0, 0}}},
    {"AnAppThatHidUnheardIsAWindowApp",
     {{"click", 2, 0}, {"passTime", 6, 0}, {"loseEvents", 0, 0}, {"click", 2, 0}}},
    {"BarsThatGoFromUnderThePointerHoldNoTiles",
     {{"openOddWindow", 0, 2}, {"passTime", 7, 0}, {"movePointer", 0, 1}, {"unplugAll", 0, 0}}},
    {"AClickedTileGoesWhereItsWindowHasLongBeen",
     {{"openFromDisk", 2, 0},
      {"movePointer", 0, 1},
      {"passTime", 6, 0},
      {"click", 0, 0},
      {"passTime", 0, 0},
      {"click", 3, 0}}},
    {"APinnedAppThatIsRemovedFromTheDiskGoes", {{"uninstall", 0, 0}}},
    {"SoItDoesWhereThatIsAnnounced", {{"changeSystem", 0, 9}, {"uninstall", 0, 0}}},
    {"WhatTheDockKeepsOfOurListIsTaken",
     {{"pinOutside", 0, 1}, {"changeSystem", 0, 0}, {"dragPinned", 0, 0}, {"pinOutside", 0, 0}}},
    {"ATileGoesWhereItsWindowHasLongBeenFromItsMenuToo",
     {{"changeSystem", 0, 2},
      {"unplug", 0, 0},
      {"launch", 1, 2},
      {"plug", 1, 0},
      {"addSpace", 0, 0},
      {"rest", 0, 0},
      {"switchSpace", 0, 1},
      {"openMenu", 2, 0},
      {"rest", 0, 0},
      {"movePointer", 0, 1},
      {"switchSpace", 0, 0},
      {"passTime", 0, 0},
      {"chooseLine", 0, 0}}},
    {"WhatAnAppDoesNotConfirmStaysLeftOut",
     {{"launch", 7, 3},
      {"launch", 4, 1},
      {"passTime", 9, 0},
      {"passTime", 9, 0},
      {"openOddWindow", 5, 8},
      {"openOddWindow", 8, 0},
      {"openWindow", 5, 0},
      {"enterFullScreen", 5, 0},
      {"passTime", 7, 0},
      {"renameWindow", 5, 1}}},
};

INSTANTIATE_TEST_SUITE_P(Steps, PastDays, testing::ValuesIn(pastDays),
                         [](const auto& instance) { return instance.param.name; });

} // namespace
} // namespace larkspan::soak
