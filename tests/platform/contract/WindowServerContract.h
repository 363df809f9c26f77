#pragma once

#include "platform/contract/DesktopWorld.h"

#include <gmock/gmock.h>
#include <set>

namespace larkspan::contract {

/// What every window server must do.
class WindowServerContract : public DesktopContract {
  protected:
    SpaceId space(std::size_t number) const {
        return server_.managedDisplaySpaces()->at(0).spaces.at(number).id64.value();
    }
    bool isOnSpace(WindowId window, std::size_t number) const {
        const auto windows = *server_.windowsOfSpace(space(number));
        return std::count(windows.begin(), windows.end(), window) == 1;
    }

    void checkThatNothingIsAnnounced() {
        int calls = 0;
        const Handle subscription = server_.subscribe([&] { ++calls; });
        const auto window = world_->openWindow("writer");
        world_->closeWindow(window);
        EXPECT_TRUE(runUntil([&] { return !entry(window); }));
        EXPECT_EQ(calls, 0);
    }

    WindowServer& server_ = platform_.windowServer;
};

TEST_P(WindowServerContract, AnEntryDescribesTheWindow) {
    const auto window = world_->openWindow("writer", {.title = "Letter"});
    const auto found = *entry(window);
    EXPECT_EQ(found.layer, 0);
    EXPECT_EQ(found.alpha, 1.0);
    EXPECT_EQ(found.name, "Letter");
    EXPECT_EQ(found.ownerPID, running("writer")->pid);
    const Rect screen = platform_.screens.screens().front().bounds;
    EXPECT_TRUE(screen.contains({found.bounds->x, found.bounds->y}));
    EXPECT_GT(found.bounds->area(), 0);
    world_->setTitle(window, "Second letter");
    EXPECT_TRUE(runUntil([&] { return entry(window)->name == "Second letter"; }));
}

TEST_P(WindowServerContract, NumbersAreUniqueAndOrdinaryWindowsBelongToRunningApps) {
    world_->openWindow("writer");
    world_->openWindow("writer");
    world_->openWindow("painter");
    std::set<ProcessId> pids;
    for (const auto& app : platform_.workspace.runningApplications())
        pids.insert(app.pid);
    std::set<WindowId> numbers;
    const auto list = *server_.windowList(WindowListOption::all);
    for (const auto& each : list) {
        EXPECT_TRUE(numbers.insert(each.number.value_or(0)).second) << each.number.value_or(0);
        if (each.layer == 0) {
            EXPECT_TRUE(pids.contains(each.ownerPID.value_or(0)));
        }
    }
    EXPECT_FALSE(numbers.contains(0)) << "0 is not a window";
}

TEST_P(WindowServerContract, TheListIsFrontToBackForEveryOption) {
    const auto first = world_->openWindow("writer");
    const auto second = world_->openWindow("painter");
    const auto third = world_->openWindow("painter");
    const std::vector<WindowId> all{first, second, third};
    EXPECT_THAT(ordered(all), testing::ElementsAre(third, second, first));
    platform_.applications.activate(owner(first));
    ASSERT_TRUE(runUntil([&] { return ordered(all).front() == first; }));
    EXPECT_THAT(ordered(all), testing::ElementsAre(first, third, second));
    for (const auto option : {WindowListOption::onScreenOnly | WindowListOption::all,
                              WindowListOption::excludeDesktopElements | 0U})
        EXPECT_THAT(ordered(all, option), testing::ElementsAre(first, third, second)) << option;
}

TEST_P(WindowServerContract, AMinimisedWindowIsListedButOnNoScreenOrSpace) {
    const auto shown = world_->openWindow("writer");
    const auto window = world_->openWindow("writer");
    world_->minimize(window);
    ASSERT_TRUE(runUntil([&] { return !isOnScreen(window); }));
    EXPECT_TRUE(entry(window));
    EXPECT_FALSE(entry(window, WindowListOption::onScreenOnly));
    EXPECT_FALSE(isOnSpace(window, 0));
    EXPECT_FALSE(isOnSpace(window, 1));
    EXPECT_TRUE(isOnScreen(shown));
    EXPECT_TRUE(isOnSpace(shown, 0));
}

TEST_P(WindowServerContract, AWindowOfAnotherSpaceIsListedButNotOnScreen) {
    const auto window = world_->openWindow("writer");
    world_->moveToSpace(window, 1);
    ASSERT_TRUE(runUntil([&] { return isOnSpace(window, 1) && !isOnScreen(window); }));
    EXPECT_FALSE(isOnSpace(window, 0));
    EXPECT_FALSE(entry(window, WindowListOption::onScreenOnly));

    world_->showSpace(1);
    EXPECT_TRUE(runUntil([&] {
        return isOnScreen(window) &&
               server_.managedDisplaySpaces()->at(0).currentSpace->id64 == space(1);
    }));
    world_->showSpace(0);
    EXPECT_TRUE(runUntil([&] {
        return !isOnScreen(window) &&
               server_.managedDisplaySpaces()->at(0).currentSpace->id64 == space(0);
    }));
}

TEST_P(WindowServerContract, TheNumbersAreThoseOfTheList) {
    world_->openWindow("writer");
    const auto minimized = world_->openWindow("painter");
    world_->minimize(minimized);
    const auto elsewhere = world_->openWindow("painter");
    world_->moveToSpace(elsewhere, 1);
    ASSERT_TRUE(runUntil([&] { return !isOnScreen(minimized) && !isOnScreen(elsewhere); }));
    for (const auto option :
         {WindowListOption::all | 0U, WindowListOption::onScreenOnly | 0U,
          WindowListOption::excludeDesktopElements | WindowListOption::onScreenOnly}) {
        const auto list = *server_.windowList(option);
        std::vector<WindowId> listed;
        for (const auto& each : list)
            listed.push_back(each.number.value_or(0));
        EXPECT_EQ(server_.windowNumbers(option), listed) << option;
    }
}

TEST_P(WindowServerContract, OnlyMovedWindowsGoToTheSpace) {
    const auto first = world_->openWindow("writer");
    const auto second = world_->openWindow("painter");
    const auto staying = world_->openWindow("painter");
    EXPECT_TRUE(server_.moveWindows({first, second}, space(1)));
    EXPECT_TRUE(runUntil([&] { return isOnSpace(first, 1) && isOnSpace(second, 1); }));
    EXPECT_FALSE(isOnSpace(first, 0));
    EXPECT_TRUE(isOnSpace(staying, 0));
    EXPECT_FALSE(isOnSpace(staying, 1));
    EXPECT_TRUE(server_.moveWindows({first}, space(0)));
    EXPECT_TRUE(runUntil([&] { return isOnSpace(first, 0) && !isOnSpace(first, 1); }));
}

TEST_P(WindowServerContract, AWindowOnAllSpacesIsOnEachOfThem) {
    const auto window = world_->openWindow("writer");
    world_->moveToSpace(window, std::nullopt);
    EXPECT_TRUE(runUntil([&] { return isOnSpace(window, 0) && isOnSpace(window, 1); }));
    EXPECT_TRUE(isOnScreen(window));
}

TEST_P(WindowServerContract, AClosedWindowIsNowhere) {
    const auto window = world_->openWindow("writer");
    const auto other = world_->openWindow("painter");
    world_->closeWindow(window);
    ASSERT_TRUE(runUntil([&] { return !entry(window); }));
    EXPECT_FALSE(isOnSpace(window, 0));
    EXPECT_TRUE(isOnScreen(other));
}

TEST_P(WindowServerContract, EachScreenIsADisplayThatShowsOneSpace) {
    const auto displays = *server_.managedDisplaySpaces();
    const auto screens = platform_.screens.screens();
    ASSERT_EQ(displays.size(), screens.size());
    std::set<SpaceId> spaces;
    for (std::size_t i = 0; i < displays.size(); ++i) {
        EXPECT_EQ(displays[i].displayIdentifier, screens[i].displayIdentifier);
        for (const auto& each : displays[i].spaces)
            EXPECT_TRUE(spaces.insert(each.id64.value()).second);
        const auto& own = displays[i].spaces;
        EXPECT_EQ(std::count(own.begin(), own.end(), displays[i].currentSpace), 1);
    }
    EXPECT_EQ(spaces.size(), 2U);
}

TEST_P(WindowServerContract, EveryKindOfChangeIsAnnouncedOrNone) {
    if (!server_.abilities().announcesChanges) {
        checkThatNothingIsAnnounced();
        return;
    }
    const auto below = world_->openWindow("painter");
    const auto window = world_->openWindow("writer");
    // Checked only after a notification, so that a change without one is never seen.
    std::function<bool()> condition = [] { return false; };
    bool wasSeen = false;
    int callsAfterItsEnd = 0;
    const Handle subscription = server_.subscribe([&] { wasSeen = wasSeen || condition(); });
    Handle ended = server_.subscribe([&] { ++callsAfterItsEnd; });
    ended.reset();
    const auto isAnnounced = [&](const std::string& what, const std::function<void()>& change,
                                 std::function<bool()> effect) {
        wasSeen = false;
        condition = std::move(effect);
        change();
        EXPECT_TRUE(runUntil([&] { return wasSeen; })) << what;
    };
    isAnnounced(
        "title", [&] { world_->setTitle(window, "New"); },
        [&] { return entry(window)->name == "New"; });
    isAnnounced(
        "order", [&] { platform_.applications.activate(owner(below)); },
        [&] {
            return ordered({below, window}).front() == below;
        });
    isAnnounced(
        "minimised", [&] { world_->minimize(window); }, [&] { return !isOnScreen(window); });
    isAnnounced(
        "Space", [&] { world_->moveToSpace(below, 1); },
        [&] { return isOnSpace(below, 1) && !isOnSpace(below, 0); });
    isAnnounced(
        "Space shown", [&] { world_->showSpace(1); }, [&] { return isOnScreen(below); });
    isAnnounced(
        "closed", [&] { world_->closeWindow(below); }, [&] { return !entry(below); });
    EXPECT_EQ(callsAfterItsEnd, 0);
    world_->showSpace(0);
    EXPECT_TRUE(runUntil(
        [&] { return server_.managedDisplaySpaces()->at(0).currentSpace->id64 == space(0); }));
}

} // namespace larkspan::contract
