#include "spaces/WindowReader.h"

#include "adapters/sim/SimMac.h"
#include "spaces/RecordedWindowServer.h"
#include "spaces/SlotWindows.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// Display 1 has the Spaces 10 (shown) and 11, display 2 the Space 20 (shown).
SpaceMap twoDisplays() {
    SpaceMap map;
    map.spaces = {{1, {10, 11}}, {2, {20}}};
    map.shown = {10, 20};
    map.owners = {{10, 1}, {11, 1}, {20, 2}};
    return map;
}

TEST(SlotsOfWindow, FollowSpaceAndDisplay) {
    const struct {
        const char* name;
        std::vector<SpaceId> spaces;
        bool isOnScreen;
        std::optional<DisplayId> display;
        std::set<Slot> slots;
    } cases[] = {
        {"on the shown Space", {10}, true, 1, {{1, 10}}},
        {"on another Space", {11}, false, 1, {{1, 11}}},
        {"on every Space", {10, 11, 20}, true, 1, {{1, 10}, {1, 11}}},
        {"across the edge of another display", {20}, true, 1, {{2, 20}}},
        {"outside every display", {11}, false, {}, {{1, 11}}},
        {"on screen, its Space unknown", {}, true, 1, {{1, 10}}},
        {"on a display without Spaces", {}, true, 3, {{3, {}}}},
        {"minimised on the shown Space", {10}, false, 1, {}},
        {"minimised on no Space", {}, false, 1, {}},
        {"on a Space that has gone", {99}, true, 2, {{2, 20}}},
    };
    for (const auto& each : cases) {
        auto map = twoDisplays();
        if (!each.spaces.empty()) map.windowSpaces[5] = each.spaces;
        const WindowInfo window{.id = 5, .pid = 7, .isOnScreen = each.isOnScreen};
        EXPECT_EQ(slotsOf(window, each.display, map), each.slots) << each.name;
    }
}

class WindowReading : public testing::Test {
  protected:
    WindowReading() {
        left = mac.displayAt(0);
        right = mac.displayAt(1);
        notes = mac.launch("com.example.notes");
        mail = mac.launch("com.example.mail");
    }
    WindowRead read() {
        auto result = reader.read(mac.platform().screens.screens());
        EXPECT_TRUE(result);
        return std::move(result).value_or(WindowRead{});
    }
    sim::SimMac mac{"1000x800 spaces=2, 1000x800"};
    Platform platform = mac.platform();
    WindowReader reader{platform.windowServer};
    DisplayId left = 0;
    DisplayId right = 0;
    ProcessId notes = 0;
    ProcessId mail = 0;
};

TEST_F(WindowReading, PlacesEveryAppAndNamesTheFront) {
    mac.openWindow(notes, {.display = left});
    mac.openWindow(mail, {.display = right});
    const auto second = mac.spaceAt(left, 1);
    mac.openWindow(mail, {.display = left, .space = second});

    const auto result = read();
    EXPECT_THAT(result.windowPIDs, ElementsAre(notes, mail));
    EXPECT_EQ(result.windowSlots.at(mail),
              (std::set<Slot>{{left, second}, {right, mac.spaceAt(right, 0)}}));
    EXPECT_THAT(result.frontDisplays, ElementsAre(Pair(left, notes), Pair(right, mail)))
        << "a window on a Space that is not shown is in front of nothing";
    EXPECT_EQ(result.frontSpaces.at(left), mac.spaceAt(left, 0));
    EXPECT_EQ(result.front().size(), 2U);
}

TEST_F(WindowReading, CountsNoMinimisedOrHiddenWindow) {
    const auto window = mac.openWindow(notes, {.display = left});
    mac.openWindow(mail, {.display = left});
    mac.minimize(window);
    mac.hide(mail);
    const auto result = read();
    EXPECT_THAT(result.windowPIDs, IsEmpty());
    EXPECT_THAT(result.windows, IsEmpty());
}

TEST_F(WindowReading, WorksWithoutSpaces) {
    mac.removeFunction("CGSMainConnectionID");
    mac.openWindow(notes, {.display = right});
    const auto result = read();
    EXPECT_FALSE(result.spaceMap);
    EXPECT_THAT(result.windowSlots, ElementsAre(Pair(notes, ElementsAre(Slot{right, {}}))));
}

struct ChangeCase {
    const char* name;
    bool hasNumbers;
    void (*change)(sim::SimMac&, WindowId shown, WindowId elsewhere);
    bool isRead;
};

class IncrementalRead : public WindowReading, public testing::WithParamInterface<ChangeCase> {};

TEST_P(IncrementalRead, IsSparedWhileNothingCameWentOrChangedOnScreen) {
    const auto& param = GetParam();
    if (!param.hasNumbers) mac.removeFunction("CGWindowListCreate");
    const auto second = mac.spaceAt(left, 1);
    const auto shown = mac.openWindow(notes, {.title = "a"});
    mac.openWindow(mail);
    const auto elsewhere = mac.openWindow(mail, {.space = second});
    const auto first = read();
    const ReadBase base{first.ids, first.front()};
    param.change(mac, shown, elsewhere);
    EXPECT_EQ(reader.readUnlessSame(base, platform.screens.screens()).has_value(), param.isRead);
}

INSTANTIATE_TEST_SUITE_P(
    Table, IncrementalRead,
    testing::Values(
        ChangeCase{"Nothing", true, [](sim::SimMac&, WindowId, WindowId) {}, false},
        ChangeCase{"NothingWithoutNumbers", false, [](sim::SimMac&, WindowId, WindowId) {}, false},
        ChangeCase{"Order", true,
                   [](sim::SimMac& m, WindowId shown, WindowId) { m.focusWindow(shown); }, true},
        ChangeCase{"TitleOnScreen", true,
                   [](sim::SimMac& m, WindowId shown, WindowId) { m.setTitle(shown, "b"); }, true},
        ChangeCase{"OrderElsewhere", true,
                   [](sim::SimMac& m, WindowId, WindowId) {
                       auto& windows = m.world().windows;
                       std::rotate(windows.begin(), windows.begin() + 1, windows.end());
                   },
                   false},
        ChangeCase{"GoneElsewhere", true,
                   [](sim::SimMac& m, WindowId, WindowId other) { m.closeWindow(other); }, true},
        ChangeCase{"GoneElsewhereWithoutNumbers", false,
                   [](sim::SimMac& m, WindowId, WindowId other) { m.closeWindow(other); }, false},
        ChangeCase{"NumbersGoMissing", true,
                   [](sim::SimMac& m, WindowId shown, WindowId) {
                       m.removeFunction("CGWindowListCreate");
                       m.focusWindow(shown);
                   },
                   true}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(WindowReading, NamesAllWindowsOfAppsThatHaveSomeElsewhere) {
    const auto second = mac.spaceAt(left, 1);
    mac.openWindow(notes, {.title = "a"});
    const auto shown = mac.openWindow(mail, {.title = "b"});
    const auto elsewhere = mac.openWindow(mail, {.title = "c", .space = second});
    mac.minimize(mac.openWindow(notes));
    std::vector<WindowId> numbers;
    for (const auto& window : read().unconfirmed)
        numbers.push_back(window.id);
    EXPECT_THAT(numbers, testing::UnorderedElementsAre(shown, elsewhere));
    mac.setAnnouncesChanges(true);
    EXPECT_THAT(read().unconfirmed, IsEmpty()) << "nothing is asked where reads are at once";
}

TEST_F(WindowReading, CountsNoClosedWindowUnlessItIsOnScreen) {
    const auto second = mac.spaceAt(left, 1);
    const auto shown = mac.openWindow(notes);
    const auto elsewhere = mac.openWindow(mail, {.space = second});
    const auto result = *reader.read(platform.screens.screens(), {shown, elsewhere});
    EXPECT_THAT(result.windowPIDs, ElementsAre(notes));
    EXPECT_EQ(result.unconfirmed.size(), 1U) << "it is still one that the server lists";
}

TEST_F(WindowReading, IsAbsentWhenTheServerIsSilent) {
    mac.world().windowListAnswers = false;
    EXPECT_FALSE(reader.read(platform.screens.screens()));
}

TEST(SlotWindows, KeepsThoseOfTheSlotAndMinimisedOnesOfItsDisplay) {
    const std::vector bothScreens{screenAt(1, "A", {0, 0, 1000, 800}),
                                  screenAt(2, "B", {1000, 0, 1000, 800})};
    auto map = twoDisplays();
    map.windowSpaces = {{1, {10}}, {2, {11}}, {3, {20}}};
    const Rect onFirst{0, 0, 300, 300};
    const Rect onSecond{1000, 0, 300, 300};
    const std::vector<AppWindow> windows{{.id = 1, .frame = onFirst},
                                         {.id = 2, .frame = onFirst},
                                         {.id = 3, .frame = onSecond},
                                         {.id = 4, .isMinimized = true, .frame = onFirst},
                                         {.id = 5, .isMinimized = true, .frame = onSecond}};
    const auto idsIn = [&](const Slot& slot) {
        std::vector<WindowId> ids;
        for (const auto& window : windowsInSlot(windows, slot, map, bothScreens))
            ids.push_back(window.id);
        return ids;
    };
    EXPECT_THAT(idsIn({1, 10}), ElementsAre(1, 4));
    EXPECT_THAT(idsIn({1, 11}), ElementsAre(2, 4));
    EXPECT_THAT(idsIn({2, 20}), ElementsAre(3, 5));
}

} // namespace
} // namespace larkspan
