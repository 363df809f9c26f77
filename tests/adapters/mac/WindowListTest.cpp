#include "adapters/mac/decode/windowList.h"
#include "PropertyView.h"

#include <gtest/gtest.h>

namespace larkspan::mac {
namespace {

using Array = PropertyValue::Array;
using Dictionary = PropertyValue::Dictionary;

PropertyValue bounds(PropertyValue x, PropertyValue y, PropertyValue width, PropertyValue height) {
    return Dictionary{{"X", x}, {"Y", y}, {"Width", width}, {"Height", height}};
}

WindowListEntry decoded(Dictionary entry) {
    const PropertyValue value(std::move(entry));
    return windowListEntry(PropertyView(&value));
}

// An ordinary window in front, as on a real Mac, with keys that are not used.
TEST(WindowList, AnOrdinaryWindowHasEveryField) {
    const auto entry = decoded({{"kCGWindowLayer", 0},
                                {"kCGWindowName", "Inbox"},
                                {"kCGWindowMemoryUsage", 2288},
                                {"kCGWindowSharingState", 1},
                                {"kCGWindowOwnerPID", 712},
                                {"kCGWindowOwnerName", "Mail"},
                                {"kCGWindowNumber", 1204},
                                {"kCGWindowAlpha", 1.0},
                                {"kCGWindowStoreType", 1},
                                {"kCGWindowIsOnscreen", true},
                                {"kCGWindowBounds", bounds(12, 38.5, 1024, 700)}});
    EXPECT_EQ(entry, (WindowListEntry{.layer = 0,
                                      .ownerPID = 712,
                                      .alpha = 1,
                                      .bounds = Rect{12, 38.5, 1024, 700},
                                      .number = 1204,
                                      .isOnScreen = true,
                                      .name = "Inbox"}));
}

TEST(WindowList, AMissingOrMalformedFieldIsAbsent) {
    const auto nan = std::numeric_limits<double>::quiet_NaN();
    const auto infinity = std::numeric_limits<double>::infinity();
    const auto large = std::int64_t{1} << 40;
    const WindowListEntry nothing;
    struct Case {
        const char* what;
        Dictionary entry;
        WindowListEntry expected;
    };
    const Case cases[] = {
        {"no key at all", {}, nothing},
        {"a layer in words", {{"kCGWindowLayer", "0"}, {"kCGWindowAlpha", 1}}, {.alpha = 1}},
        {"a layer that is a boolean", {{"kCGWindowLayer", false}}, nothing},
        {"a layer stored as a real number", {{"kCGWindowLayer", 25.0}}, {.layer = 25}},
        {"a layer between two numbers", {{"kCGWindowLayer", 0.5}}, nothing},
        {"a layer beyond every layer", {{"kCGWindowLayer", large}}, nothing},
        {"the lowest layer",
         {{"kCGWindowLayer", std::int64_t{-2147483648}}},
         {.layer = -2147483647 - 1}},
        {"a process beyond every process", {{"kCGWindowOwnerPID", large}}, nothing},
        {"a process that is not a number", {{"kCGWindowOwnerPID", nan}}, nothing},
        {"a process without end", {{"kCGWindowOwnerPID", infinity}}, nothing},
        {"an alpha that is not a number", {{"kCGWindowAlpha", nan}}, nothing},
        {"an invisible window", {{"kCGWindowAlpha", 0}}, {.alpha = 0}},
        {"the largest window number",
         {{"kCGWindowNumber", std::int64_t{4294967295}}},
         {.number = 4294967295U}},
        {"it again, stored signed", {{"kCGWindowNumber", -1}}, {.number = 4294967295U}},
        {"a number beyond every window", {{"kCGWindowNumber", std::int64_t{4294967296}}}, nothing},
        {"on screen as a number", {{"kCGWindowIsOnscreen", 1}}, {.isOnScreen = true}},
        {"off screen as a number", {{"kCGWindowIsOnscreen", 0}}, {.isOnScreen = false}},
        {"on screen in words", {{"kCGWindowIsOnscreen", "yes"}}, nothing},
        {"a name that is a number", {{"kCGWindowName", 7}}, nothing},
        {"an empty name", {{"kCGWindowName", ""}}, {.name = ""}},
        {"bounds in words", {{"kCGWindowBounds", "0 0 10 10"}}, nothing},
        {"bounds without a height",
         {{"kCGWindowBounds", Dictionary{{"X", 1}, {"Y", 2}, {"Width", 3}}}},
         nothing},
        {"bounds that are not numbers", {{"kCGWindowBounds", bounds(0, nan, 10, 10)}}, nothing},
        {"bounds without end", {{"kCGWindowBounds", bounds(0, 0, infinity, 10)}}, nothing},
        {"a coordinate that is a boolean", {{"kCGWindowBounds", bounds(true, 0, 9, 9)}}, nothing},
        {"bounds left of the main display",
         {{"kCGWindowBounds", bounds(-1920, -0.5, 60, 40)}},
         {.bounds = Rect{-1920, -0.5, 60, 40}}},
    };
    for (const auto& each : cases)
        EXPECT_EQ(decoded(each.entry), each.expected) << each.what;
}

TEST(WindowList, KeepsItsOrderAndItsMalformedEntries) {
    const PropertyValue list(Array{Dictionary{{"kCGWindowNumber", 3}}, "no entry", Array{},
                                   Dictionary{{"kCGWindowNumber", 1}}});
    EXPECT_EQ(windowList(PropertyView(&list)),
              (std::vector<WindowListEntry>{{.number = 3}, {}, {}, {.number = 1}}));
}

TEST(WindowList, AFailedCallIsNotAnEmptyWindowList) {
    const PropertyValue empty(Array{});
    const PropertyValue dictionary(Dictionary{});
    EXPECT_EQ(windowList(PropertyView(&empty)), std::vector<WindowListEntry>{});
    EXPECT_EQ(windowList(PropertyView(nullptr)), std::nullopt);
    EXPECT_EQ(windowList(PropertyView(&dictionary)), std::nullopt);
    EXPECT_EQ(windowNumbers(PropertyView(&empty)), std::vector<WindowId>{});
    EXPECT_EQ(windowNumbers(PropertyView(nullptr)), std::nullopt);
}

TEST(WindowList, NumbersSkipOtherTypes) {
    const PropertyValue list(Array{7, -1, "8", true, 9.0, std::int64_t{1} << 33, 10});
    EXPECT_EQ(windowNumbers(PropertyView(&list)), (std::vector<WindowId>{7, 4294967295U, 9, 10}));
}

} // namespace
} // namespace larkspan::mac
