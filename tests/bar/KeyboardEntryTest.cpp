#include "bar/KeyboardEntry.h"

#include "bar/BarWorld.h"
#include "dock/FixedScreens.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class KeyboardEntryTest : public testing::Test, protected BarWorld {
  protected:
    KeyboardEntryTest() {
        start();
        screens.add(1, {0, 0, 1440, 900}, 72);
        screens.add(2, {1440, 0, 1280, 900}, 72);
        for (auto& screen : screens.list)
            screen.bounds = screen.frame;
        bars.show();
        panels.takeCalls();
    }
    void put(ProcessId pid, const Rect& bounds, bool isOnScreen = true) {
        windows.push_back({.pid = pid, .bounds = bounds, .isOnScreen = isOnScreen});
        store.applyWindowRead({.windows = windows});
    }

    std::vector<WindowInfo> windows;
    FixedScreens screens;
    BarController bars{
        mac.scheduler, store, screens, platform.coreDock, [this] { return makeInteraction(); },
        panels,        log,   72};
    KeyboardEntry keyboard{platform.scheduler, store, bars, log};
};

TEST_F(KeyboardEntryTest, GoesToTheDisplayThatTheUserWorksOn) {
    put(7, {100, 100, 300, 300});
    put(8, {1300, 100, 100, 300}, false);
    put(8, {1300, 100, 400, 300});
    const std::pair<std::optional<ProcessId>, const char*> cases[] = {
        {7, "keyboard 1"}, {8, "keyboard 2"}, {9, "keyboard 1"}, {std::nullopt, "keyboard 1"}};
    for (const auto& [front, call] : cases) {
        store.frontAppChanged(front);
        EXPECT_TRUE(keyboard.begin());
        EXPECT_THAT(panels.takeCalls(), ElementsAre(call));
    }
}

TEST_F(KeyboardEntryTest, ACoveredBarDoesNotGetIt) {
    put(7, {0, 0, 1440, 900});
    store.frontAppChanged(7);
    bars.fullScreenChanged({.spaces = {{0, 0, 1440, 900}}, .windows = {}});
    panels.takeCalls();
    EXPECT_TRUE(keyboard.begin());
    EXPECT_THAT(panels.takeCalls(), ElementsAre("keyboard 2"));
    bars.hide();
    EXPECT_FALSE(keyboard.begin());
}

TEST_F(KeyboardEntryTest, WaitsForAKeyThatIsStillHeld) {
    panels.isKeyboardHeld = true;
    EXPECT_TRUE(keyboard.begin());
    mac.scheduler.runFor(0.3);
    panels.isKeyboardHeld = false;
    EXPECT_GT(panels.takeCalls().size(), 3U);
    mac.scheduler.runFor(1);
    EXPECT_THAT(panels.takeCalls(), ElementsAre("keyboard 1")) << "once it has it, it asks no more";
}

TEST_F(KeyboardEntryTest, GivesUpAndAsksNoMore) {
    panels.isKeyboardHeld = true;
    keyboard.begin();
    mac.scheduler.runFor(3);
    panels.takeCalls();
    mac.scheduler.runFor(10);
    EXPECT_THAT(panels.takeCalls(), IsEmpty());
}

} // namespace
} // namespace larkspan
