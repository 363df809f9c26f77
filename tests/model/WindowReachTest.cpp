#include "model/ModelWorld.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;
using testing::UnorderedElementsAre;

/// A Mac that is polled, with an app whose windows lie on two Spaces; the first is shown.
class WindowReaching : public testing::Test, protected ModelWorld {
  protected:
    WindowReaching()
        : ModelWorld("1440x900 spaces=3") {
        mac.setAnnouncesChanges(false);
        display = mac.displayAt(0);
        second = mac.spaceAt(display, 1);
        third = mac.spaceAt(display, 2);
        notes = launch("notes");
        near = mac.openWindow(notes, {.title = "Near"});
        far = mac.openWindow(notes, {.title = "Far", .space = second});
    }
    /// Long enough for a full read and what follows from it.
    void letPollsPass() { mac.scheduler.runFor(3); }
    /// The window list has it, yet neither Accessibility nor a search knows it.
    WindowId openGhost(SpaceId space) {
        return mac.openWindow(notes, {.title = "Ghost", .space = space, .subrole = "AXUnknown"});
    }
    const DisplayGroup* group(SpaceId space) const {
        for (const auto& each : *store.windowAppGroups())
            if (each.slot.space == space) return &each;
        return nullptr;
    }

    DisplayId display = 0;
    std::size_t visits() const { return mac.scheduler.waitingTasks("window reach"); }

    SpaceId second = 0;
    SpaceId third = 0;
    ProcessId notes = 0;
    WindowId near = 0;
    WindowId far = 0;
};

TEST_F(WindowReaching, AClickInAGroupRaisesTheWindowOfItsSpace) {
    mac.openWindow(notes, {.title = "Further", .space = third});
    start();
    letPollsPass();
    ASSERT_TRUE(group(second));
    click.click(group(second)->items.front(), group(second), {});
    EXPECT_EQ(mac.world().windows.front().id, far);
    EXPECT_THAT(newLines("DockStore"), testing::SizeIs(1));
    EXPECT_FALSE(mac.world().app(notes)->hidden);
}

TEST_F(WindowReaching, AnAppInFrontWithoutAWindowHereIsNotSentAway) {
    mac.closeWindow(near);
    start();
    letPollsPass();
    // Activating it would bring its Space into view.
    mac.world().frontmost = notes;
    click.click(item("notes"), nullptr, {});
    EXPECT_FALSE(mac.world().app(notes)->hidden);
}

TEST_F(WindowReaching, ForgetsAWindowThatIsNoLongerThere) {
    start();
    letPollsPass();
    mac.closeWindow(far);
    letPollsPass();
    EXPECT_EQ(store.reachedWindows().count(far), 0U);
}

TEST_F(WindowReaching, AListedWindowThatNothingKnowsStopsCounting) {
    openGhost(third);
    start();
    EXPECT_TRUE(store.windowSlots().at(notes).contains({display, third})) << "until it is known";
    letPollsPass();
    EXPECT_THAT(
        store.windowSlots().at(notes),
        UnorderedElementsAre(Slot{display, mac.spaceAt(display, 0)}, Slot{display, second}));
    mac.scheduler.runFor(60);
    EXPECT_FALSE(store.windowSlots().at(notes).contains({display, third})) << "and stays away";
}

TEST_F(WindowReaching, AWindowThatShowsItselfAfterAllCounts) {
    const auto ghost = openGhost(third);
    start();
    letPollsPass();
    mac.switchSpace(display, 2);
    letPollsPass();
    mac.world().window(ghost)->subrole = "AXStandardWindow";
    mac.switchSpace(display, 0);
    letPollsPass();
    EXPECT_TRUE(store.windowSlots().at(notes).contains({display, third}));
}

struct KeptCase {
    const char* name;
    void (*prepare)(sim::SimMac&, ProcessId);
};

class UnprovedGhost : public WindowReaching, public testing::WithParamInterface<KeptCase> {};

TEST_P(UnprovedGhost, CountsWhereItsAbsenceCannotBeProved) {
    openGhost(third);
    GetParam().prepare(mac, notes);
    start();
    mac.scheduler.runFor(70);
    EXPECT_TRUE(store.windowSlots().at(notes).contains({display, third}));
}

INSTANTIATE_TEST_SUITE_P(
    Table, UnprovedGhost,
    testing::Values(
        KeptCase{"NoTokens",
                 [](sim::SimMac& m, ProcessId) {
                     m.removeFunction("_AXUIElementCreateWithRemoteToken");
                 }},
        KeptCase{"NoWindowNumbers",
                 [](sim::SimMac& m, ProcessId) { m.removeFunction("_AXUIElementGetWindow"); }},
        KeptCase{"NoPermission", [](sim::SimMac& m, ProcessId) { m.refuseAccessibility(); }},
        KeptCase{"Hung", [](sim::SimMac& m, ProcessId pid) { m.hang(pid); }},
        KeptCase{"TooSlow",
                 [](sim::SimMac& m, ProcessId pid) { m.world().app(pid)->answerSeconds = 0.05; }}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(WindowReaching, AHungAppIsNotAskedAgainBeforeItsRecordExpires) {
    openGhost(third);
    start();
    mac.hang(notes);
    mac.world().messagingTimeout = 0.5;
    mac.scheduler.runFor(20);
    mac.hang(notes, false);
    mac.scheduler.runFor(5);
    EXPECT_THAT(store.reachedWindows(), IsEmpty());
    mac.scheduler.runFor(10);
    EXPECT_THAT(store.reachedWindows(), testing::Contains(Key(far)));
}

TEST_F(WindowReaching, MayEndWithAVisitUnderWay) {
    start();
    mac.scheduler.queueLatency = 0.3;
    for (int steps = 0; steps < 50 && visits() == 0; ++steps)
        mac.scheduler.runFor(0.1);
    ASSERT_EQ(visits(), 1U);
    refresh.reset();
    letPollsPass();
    EXPECT_THAT(store.reachedWindows(), IsEmpty());
}

} // namespace
} // namespace larkspan
