#include "model/ModelWorld.h"

#include <gmock/gmock.h>

#include <cmath>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

/// The lines that reads write, without those about what they found.
std::vector<std::string> readLines(ModelWorld& world) {
    auto lines = world.newLines("windows");
    std::erase_if(lines,
                  [](const std::string& line) { return !line.starts_with("window list read"); });
    return lines;
}

/// A desktop that announces its changes and is read at once, as X11.
class AnnouncedRefresh : public testing::Test, protected ModelWorld {};

TEST_F(AnnouncedRefresh, ReadsOnceForABurstOfEvents) {
    const auto notes = launch("notes");
    start();
    settle();
    readLines(*this);
    mac.openWindow(notes);
    mac.openWindow(launch("mail"));
    mac.openWindow(launch("music"));
    settle();
    EXPECT_EQ(groups(), "notes mail music");
    EXPECT_THAT(readLines(*this), SizeIs(1));
}

TEST_F(AnnouncedRefresh, AnimatesTheRegroup) {
    start();
    std::optional<Animation> animation;
    const auto observer = store.windowAppGroups().observe([&] { animation = store.animation(); });
    mac.openWindow(launch("notes"));
    settle();
    EXPECT_EQ(animation, windowReadAnimation);
    EXPECT_EQ(store.animation(), std::nullopt);
}

TEST_F(AnnouncedRefresh, SeesWhatChangesOutsideTheScreen) {
    ModelWorld world("1440x900 spaces=2");
    world.mac.openWindow(world.launch("notes"));
    const auto mail = world.launch("mail");
    world.start();
    world.settle();
    world.mac.openWindow(mail, {.space = world.mac.spaceAt(world.mac.displayAt(0), 1)});
    world.settle();
    EXPECT_EQ(world.groups(), "notes | (mail)");
    world.mac.switchSpace(world.mac.displayAt(0), 1);
    world.settle();
    EXPECT_EQ(world.groups(), "(notes) | mail");
}

TEST_F(AnnouncedRefresh, FollowsThePinnedList) {
    start();
    mac.install("com.example.mail", "mail");
    mac.pin("com.example.mail");
    settle();
    EXPECT_EQ(pinned(), "finder mail");
}

TEST_F(AnnouncedRefresh, HoldsTilesWhileThePointerIsOnTheBarAndFreesThemTogether) {
    const auto notes = launch("notes");
    const auto window = mac.openWindow(notes);
    const auto mail = launch("mail");
    start();
    settle();
    refresh->setPointerOnBar(true);
    mac.minimize(window);
    mac.openWindow(mail);
    settle();
    EXPECT_EQ(groups(), "notes");
    EXPECT_EQ(background(), "finder mail");
    refresh->setPointerOnBar(false);
    settle();
    EXPECT_EQ(groups(), "mail");
    EXPECT_EQ(background(), "finder notes");
}

TEST_F(AnnouncedRefresh, HoldsReadsWhileSpacesSlide) {
    ModelWorld world("1440x900 spaces=2");
    world.mac.openWindow(world.launch("notes"));
    world.start();
    world.settle();
    readLines(world);
    world.refresh->beginSpaceSwitch();
    world.mac.openWindow(world.mac.pidOf("com.example.notes"));
    world.settle();
    EXPECT_THAT(readLines(world), IsEmpty());
    world.mac.switchSpace(world.mac.displayAt(0), 1);
    world.settle();
    EXPECT_THAT(readLines(world), SizeIs(1));
    EXPECT_EQ(world.groups(), "(notes)");
}

/// A Mac: nothing is announced but by the workspace, and reads take time on a queue.
class PolledRefresh : public testing::Test, protected ModelWorld {
  protected:
    PolledRefresh() {
        mac.setAnnouncesChanges(false);
        notes = launch("notes");
        mac.openWindow(notes);
        start();
        settle();
        readLines(*this);
        mac.world().windowListSeconds = 0.0125;
    }
    /// Lets the poll start a read that is still under way when this returns.
    void beginRead() {
        mac.scheduler.queueLatency = 0.1;
        refresh->requestRead(false);
        mac.scheduler.runFor(0.05);
    }
    ProcessId notes = 0;
};

// The next poll would come after half a second.
TEST_F(PolledRefresh, LooksAtTheWindowsSoonAfterAClickOrACommandKey) {
    const struct {
        const char* name;
        std::function<void()> act;
        bool isSeen;
    } cases[] = {
        {"click",
         [&] {
             mac.click({700, 400});
         },
         true},
        {"Command key", [&] { mac.pressKey(ModifierFlag::command); }, true},
        {"Command and Shift", [&] { mac.pressKey(ModifierFlag::command | ModifierFlag::shift); },
         true},
        {"another key", [&] { mac.pressKey(ModifierFlag::shift); }, false},
        {"a move",
         [&] {
             mac.movePointer({700, 400});
         },
         false},
    };
    for (const auto& each : cases) {
        mac.scheduler.runFor(std::ceil(mac.scheduler.uptime()) + 0.02 - mac.scheduler.uptime());
        readLines(*this);
        each.act();
        mac.scheduler.runFor(0.2);
        EXPECT_EQ(readLines(*this).size(), each.isSeen ? 1U : 0U) << each.name;
    }
}

TEST_F(PolledRefresh, AKeyThatRepeatsNeitherFloodsNorDelaysTheReads) {
    mac.doubleEvents();
    for (int i = 0; i < 30; ++i) {
        mac.pressKey(ModifierFlag::command);
        mac.scheduler.runFor(1.0 / 30);
    }
    EXPECT_THAT(readLines(*this), SizeIs(testing::AllOf(testing::Ge(7U), testing::Le(13U))));
}

TEST_F(PolledRefresh, FindsOutThatThePointerHasLeftTheBarWhoeverMissedIt) {
    const auto mail = launch("mail", {.inBackground = true});
    mac.scheduler.runFor(1);
    store.barFramesChanged({{0, 0, 1440, 72}});
    mac.movePointer({720, 36});
    refresh->setPointerOnBar(true);
    mac.minimize(mac.world().windows.front().id);
    mac.openWindow(mail);
    mac.scheduler.runFor(2);
    EXPECT_EQ(groups(), "notes") << "held, though windows were read";
    mac.loseEvents();
    mac.movePointer({720, 400});
    mac.scheduler.runFor(0.6);
    EXPECT_FALSE(store.isPointerOnBar());
    EXPECT_EQ(groups(), "mail");
    mac.movePointer({720, 36});
    mac.scheduler.runFor(0.6);
    EXPECT_TRUE(store.isPointerOnBar()) << "it is back, and no view has told otherwise";
}

TEST_F(PolledRefresh, HoldsTilesWhileAMenuOfTheBarIsOpen) {
    store.barFramesChanged({{0, 0, 1440, 72}});
    mac.movePointer({720, 400});
    refresh->setPointerOnBar(false, true);
    mac.scheduler.runFor(2);
    EXPECT_TRUE(store.isPointerOnBar());
    refresh->setPointerOnBar(false, false);
    EXPECT_FALSE(store.isPointerOnBar());
}

TEST_F(PolledRefresh, RebuildsAfterAReadWhenAskedDuringIt) {
    beginRead();
    refresh->requestRead(true);
    settle();
    const auto lines = readLines(*this);
    ASSERT_THAT(lines, SizeIs(2));
    EXPECT_THAT(lines[0], HasSubstr("icons regrouped in"));
    EXPECT_THAT(lines[1], HasSubstr("no window came, went or changed on screen"));
}

TEST_F(PolledRefresh, DropsAReadThatEndsDuringASlideAndReadsAnewAfterIt) {
    beginRead();
    refresh->beginSpaceSwitch();
    settle();
    EXPECT_THAT(readLines(*this),
                ElementsAre("window list read in 112 ms, dropped since Spaces are sliding"));
    refresh->requestRead(false);
    settle();
    EXPECT_THAT(readLines(*this), IsEmpty());
    mac.world().announce(WorkspaceEvent::Kind::activeSpaceDidChange);
    settle();
    EXPECT_THAT(readLines(*this), SizeIs(1));
}

TEST_F(PolledRefresh, WritesWhatAReadFound) {
    mac.scheduler.runFor(2.1);
    readLines(*this);
    mac.scheduler.runFor(2.5);
    auto lines = readLines(*this);
    EXPECT_THAT(lines, testing::Contains("window list read in 12 ms; nothing to regroup"))
        << "a full read every two seconds";
    EXPECT_THAT(lines, testing::Contains(
                           "window list read in 12 ms; no window came, went or changed on screen"))
        << "cheaper reads between them";
    mac.openWindow(launch("mail"));
    settle();
    lines = newLines("windows");
    ASSERT_THAT(lines, SizeIs(testing::Ge(2U)));
    EXPECT_THAT(lines[0], StartsWith("pid "));
    EXPECT_EQ(lines[1], "window list read in 12 ms; icons regrouped in 0 ms, SwiftUI animates them "
                        "for 0.35 s");
}

TEST_F(PolledRefresh, ChecksThePinnedListEveryTwoSeconds) {
    mac.install("com.example.mail", "mail");
    mac.pin("com.example.mail");
    settle();
    EXPECT_EQ(pinned(), "finder");
    mac.scheduler.runFor(2.1);
    EXPECT_EQ(pinned(), "finder mail");
}

} // namespace
} // namespace larkspan
