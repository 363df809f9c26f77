#include "spaces/FocusedWindow.h"

#include <gtest/gtest.h>

namespace larkspan {
namespace {

// The menu bar takes 25 points of the first screen; the second lies to its left and has none.
const std::vector<Screen> neighbours{
    {.display = 1,
     .frame = {0, 0, 1440, 900},
     .visibleFrame = {0, 70, 1440, 805},
     .bounds = {0, 0, 1440, 900}},
    {.display = 2,
     .frame = {-1280, 180, 1280, 720},
     .visibleFrame = {-1280, 180, 1280, 720},
     .bounds = {-1280, 0, 1280, 720}},
};

TEST(ScreenFilledBy, AWindowFillsAScreenWhenNothingIsLeftForTheBar) {
    const struct {
        const char* name;
        Rect window;
        DisplayId filled;
    } cases[] = {
        {"the whole screen", {0, 0, 1440, 900}, 1},
        {"below the menu bar", {0, 25, 1440, 875}, 1},
        {"off by a point everywhere", {1, 26, 1439, 873}, 1},
        {"further down than the menu bar", {0, 27, 1440, 873}, 0},
        {"zoomed, down to the strip", {0, 25, 1440, 803}, 0},
        {"a point into the strip", {0, 25, 1440, 804}, 0},
        {"two points into the strip", {0, 25, 1440, 805}, 1},
        {"not as wide", {0, 0, 1438, 900}, 0},
        {"wider", {0, 0, 1442, 900}, 0},
        {"moved to the side", {2, 0, 1440, 900}, 0},
        {"the left screen", {-1280, 0, 1280, 720}, 2},
        {"both neighbours", {-1280, 0, 2720, 900}, 0},
        {"no size", {0, 0, 0, 0}, 0},
    };
    for (const auto& each : cases) {
        const auto filled = screenFilledBy(each.window, neighbours, 72);
        EXPECT_EQ(filled ? filled->display : 0, each.filled) << each.name;
    }
    EXPECT_FALSE(screenFilledBy({0, 0, 1440, 900}, {}, 72));
}

} // namespace
} // namespace larkspan
