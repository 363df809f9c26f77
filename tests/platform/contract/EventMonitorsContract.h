#pragma once

#include "platform/contract/DesktopWorld.h"

namespace larkspan::contract {

/// What all event monitors must do. Only some desktops report clicks and keys.
class EventMonitorsContract : public DesktopContract {
  protected:
    static constexpr InputEventMask moves = maskOf(InputEventType::mouseMoved);

    EventMonitors& monitors_ = platform_.eventMonitors;
};

TEST_P(EventMonitorsContract, ThePointersPositionIsReported) {
    for (const Point place : {Point{200, 300}, Point{0, 1}, Point{640, 40}}) {
        world_->movePointer(place);
        EXPECT_EQ(monitors_.mouseLocation(), place);
    }
}

TEST_P(EventMonitorsContract, TheLastOfManyMovesIsReported) {
    world_->movePointer({10, 10});
    std::optional<Point> reported;
    const Handle monitor = monitors_.addGlobalMonitor(
        moves, [&](const InputEvent& event) { reported = event.location; });
    for (int x = 20; x <= 200; x += 20)
        world_->movePointer({double(x), 100});
    EXPECT_TRUE(runUntil([&] { return reported == Point{200, 100}; }));
    world_->movePointer({300, 120});
    EXPECT_TRUE(runUntil([&] {
        return reported == Point{300, 120};
    })) << "and the next one after a pause";
}

TEST_P(EventMonitorsContract, AnEndedMonitorIsSilentAndOthersContinue) {
    int ended = 0, calls = 0;
    Handle first = monitors_.addGlobalMonitor(moves, [&](const InputEvent&) { ++ended; });
    Handle second = monitors_.addGlobalMonitor(moves, [&](const InputEvent&) { ++calls; });
    first.reset();
    world_->movePointer({50, 60});
    EXPECT_TRUE(runUntil([&] { return calls > 0; }));
    second.reset();
    const Handle third = monitors_.addGlobalMonitor(moves, [&](const InputEvent&) { ++calls; });
    const int before = calls;
    world_->movePointer({90, 60});
    EXPECT_TRUE(runUntil([&] { return calls > before; })) << "after the last one has ended";
    EXPECT_EQ(ended, 0);
}

TEST_P(EventMonitorsContract, AMonitorMayEndInItsCallback) {
    int calls = 0;
    Handle monitor;
    monitor = monitors_.addGlobalMonitor(moves, [&](const InputEvent&) {
        ++calls;
        monitor.reset();
    });
    world_->movePointer({70, 80});
    Point seenByAnother;
    const Handle other = monitors_.addGlobalMonitor(
        moves, [&](const InputEvent& event) { seenByAnother = event.location; });
    ASSERT_TRUE(runUntil([&] { return calls == 1; }));
    world_->movePointer({95, 80});
    EXPECT_TRUE(runUntil([&] { return seenByAnother == Point{95, 80}; }));
    EXPECT_EQ(calls, 1);
}

TEST_P(EventMonitorsContract, OtherTypesAreNotReported) {
    int keys = 0, calls = 0;
    const Handle typed = monitors_.addGlobalMonitor(maskOf(InputEventType::keyDown),
                                                    [&](const InputEvent&) { ++keys; });
    const Handle moved = monitors_.addGlobalMonitor(moves, [&](const InputEvent&) { ++calls; });
    world_->movePointer({30, 30});
    EXPECT_TRUE(runUntil([&] { return calls > 0; }));
    EXPECT_EQ(keys, 0);
}

} // namespace larkspan::contract
