#include "spaces/WindowPresence.h"

#include "adapters/sim/SimMac.h"
#include "spaces/RecordedWindowServer.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using WindowPresence::Listed;

const std::vector screens{screenAt(1, "A", {0, 0, 1000, 800}),
                          screenAt(2, "B", {1000, 0, 1000, 800})};

TEST(WindowList, KeepsWhatAUserCallsAWindow) {
    const struct {
        const char* name;
        void (*alter)(WindowListEntry&);
        bool isListed;
    } cases[] = {
        {"ordinary", [](auto&) {}, true},
        {"a panel", [](auto& e) { e.layer = 3; }, false},
        {"below the desktop", [](auto& e) { e.layer = -1; }, false},
        {"no layer", [](auto& e) { e.layer.reset(); }, false},
        {"no owner", [](auto& e) { e.ownerPID.reset(); }, false},
        {"invisible", [](auto& e) { e.alpha = 0; }, false},
        {"hardly visible", [](auto& e) { e.alpha = 0.01; }, true},
        {"no alpha", [](auto& e) { e.alpha.reset(); }, true},
        {"no bounds", [](auto& e) { e.bounds.reset(); }, false},
        {"too narrow", [](auto& e) { e.bounds->width = 59; }, false},
        {"narrow", [](auto& e) { e.bounds->width = 60; }, true},
        {"too flat", [](auto& e) { e.bounds->height = 39; }, false},
        {"flat", [](auto& e) { e.bounds->height = 40; }, true},
    };
    for (const auto& [name, alter, isListed] : cases) {
        RecordedWindowServer server;
        server.list = {{.layer = 0, .ownerPID = 7, .alpha = 1.0, .bounds = Rect{0, 0, 300, 300}}};
        alter(server.list->front());
        EXPECT_EQ(WindowPresence::listWindows(server, Listed::everywhere)->size(), isListed ? 1 : 0)
            << name;
    }
}

TEST(WindowList, GivesWhatAnEntryLeavesOutItsDefault) {
    RecordedWindowServer server;
    server.list = {{.layer = 0, .ownerPID = 7, .bounds = Rect{1, 2, 300, 200}}};
    EXPECT_THAT(*WindowPresence::listWindows(server, Listed::everywhere),
                ElementsAre(WindowInfo{0, 7, {1, 2, 300, 200}, false, ""}));
}

TEST(WindowList, IsAbsentWhenTheServerGivesNone) {
    RecordedWindowServer server;
    server.list.reset();
    EXPECT_FALSE(WindowPresence::listWindows(server, Listed::onScreen));
}

TEST(FramesMatch, WithinOnePointInEveryPart) {
    const Rect frame{10, 20, 300, 200};
    EXPECT_TRUE(WindowPresence::framesMatch(frame, {11, 19, 301, 199}));
    EXPECT_FALSE(WindowPresence::framesMatch(frame, {11.01, 20, 300, 200}));
    EXPECT_FALSE(WindowPresence::framesMatch(frame, {10, 18.99, 300, 200}));
    EXPECT_FALSE(WindowPresence::framesMatch(frame, {10, 20, 301.01, 200}));
    EXPECT_FALSE(WindowPresence::framesMatch(frame, {10, 20, 300, 198.99}));
}

TEST(DisplayOf, IsTheOneThatShowsMostOfTheWindow) {
    EXPECT_EQ(WindowPresence::displayOf({900, 0, 300, 100}, screens), 2U);
    EXPECT_EQ(WindowPresence::displayOf({850, 0, 300, 100}, screens), 1U) << "the first wins a tie";
    EXPECT_EQ(WindowPresence::displayOf({850, 900, 300, 100}, screens), std::nullopt);
}

ManagedDisplay showing(std::optional<std::string> identifier, std::optional<ManagedSpace> space) {
    return {.displayIdentifier = std::move(identifier), .currentSpace = std::move(space)};
}

TEST(FullScreenState, NamesTheDisplaysOfFullScreenSpacesAndScreenSizedWindows) {
    const std::vector displays{showing("A", ManagedSpace{.id64 = 1, .type = 4}),
                               showing("B", ManagedSpace{.id64 = 2, .type = 0})};
    const std::vector<WindowInfo> windows{{1, 7, {1000, 1, 1000, 799}, true, ""},
                                          {2, 7, {0, 0, 1000, 800}, false, ""}};
    const auto state = WindowPresence::fullScreenState(windows, screens, displays);
    EXPECT_THAT(state.spaces, ElementsAre(screens[0].frame));
    EXPECT_THAT(state.windows, ElementsAre(screens[1].frame))
        << "a window that is not on screen covers nothing";
}

TEST(FullScreenState, CoversEveryDisplayWhenTheyShareTheirSpaces) {
    const auto state = WindowPresence::fullScreenState(
        {}, screens, {showing("Main", ManagedSpace{.id64 = 1, .type = 4})});
    EXPECT_THAT(state.spaces, ElementsAre(screens[0].frame, screens[1].frame));
}

TEST(FullScreenDisplays, LeavesOutWhatIsMalformed) {
    EXPECT_THAT(
        WindowPresence::fullScreenDisplays({showing({}, ManagedSpace{.type = 4}), showing("A", {}),
                                            showing("B", ManagedSpace{.id64 = 3})}),
        IsEmpty());
}

class AccessibilityWindows : public testing::Test {
  protected:
    AccessibilityWindows() {
        mac.install("com.example.notes", "Notes");
        notes = mac.launch("com.example.notes");
    }
    std::optional<std::vector<AppWindow>> read() {
        return WindowPresence::accessibilityWindows(mac.accessibility, notes);
    }
    sim::SimMac mac;
    ProcessId notes = 0;
};

TEST_F(AccessibilityWindows, AreTheStandardOnesAndDialogs) {
    const auto window = mac.openWindow(notes, {.frame = Rect{10, 60, 400, 300}, .title = "List"});
    mac.openWindow(notes, {.title = "Palette", .subrole = "AXFloatingWindow"});
    mac.openWindow(notes, {.title = "Nameless", .subrole = ""});
    mac.openWindow(notes, {.title = "Ask", .subrole = "AXDialog"});
    mac.minimize(window);

    const auto windows = *read();
    ASSERT_EQ(windows.size(), 2U);
    const auto& list = windows[0].title == "List" ? windows[0] : windows[1];
    EXPECT_EQ(list.id, window);
    EXPECT_EQ(list.pid, notes);
    EXPECT_TRUE(list.isMinimized);
    EXPECT_EQ(list.frame, (Rect{10, 60, 400, 300}));
    EXPECT_TRUE(list.element);
    EXPECT_FALSE(list.isOnOtherSpace);
}

TEST_F(AccessibilityWindows, AreAbsentWhenTheAppHangs) {
    mac.openWindow(notes);
    mac.hang(notes);
    EXPECT_FALSE(read());
}

TEST_F(AccessibilityWindows, AreEmptyWithoutPermissionOrProcess) {
    mac.openWindow(notes);
    EXPECT_THAT(*WindowPresence::accessibilityWindows(mac.accessibility, 0), IsEmpty());
    mac.refuseAccessibility();
    EXPECT_THAT(*read(), IsEmpty());
}

} // namespace
} // namespace larkspan
