#pragma once

#include "platform/contract/DesktopWorld.h"

#include <gmock/gmock.h>
#include <set>
#include <utility>

namespace larkspan::contract {

/// What every adapter must report about windows observed through Accessibility.
class AXObserverContract : public DesktopContract {
  protected:
    /// Records each notification, with that label.
    void observe(const AXElementRef& element, const std::string& label = "") {
        for (const char* name : {"AXFocusedWindowChanged", "AXWindowMoved", "AXWindowResized",
                                 "AXUIElementDestroyed"}) {
            auto handle =
                ax_.observe(element, name, [this, line = label + name] { reported_.insert(line); });
            EXPECT_TRUE(handle) << name;
            handles_.push_back(std::move(handle));
        }
        // An observation may start in the next turn.
        runUntil([] { return true; });
    }
    AXElementRef app(WindowId window) const { return ax_.createApplication(owner(window)); }
    /// Everything that was reported up to this line.
    std::set<std::string> reportedUpTo(const std::string& line) {
        EXPECT_TRUE(runUntil([&] { return reported_.contains(line); })) << line;
        return std::exchange(reported_, {});
    }

    std::vector<Handle> handles_;
    std::set<std::string> reported_;
};

TEST_P(AXObserverContract, AnAppReportsTheChangesOfAllItsWindows) {
    const auto first = world_->openWindow("writer");
    observe(app(first));
    const auto second = world_->openWindow("writer");
    reportedUpTo("AXFocusedWindowChanged");
    for (const auto window : {first, second}) {
        world_->moveWindow(window, {30, 20});
        EXPECT_THAT(reportedUpTo("AXWindowMoved"), testing::ElementsAre("AXWindowMoved"));
        world_->resizeWindow(window, {40, 50});
        EXPECT_THAT(reportedUpTo("AXWindowResized"), testing::ElementsAre("AXWindowResized"));
    }
    world_->closeWindow(second);
    EXPECT_THAT(reportedUpTo("AXUIElementDestroyed"), testing::Contains("AXUIElementDestroyed"));
}

TEST_P(AXObserverContract, TheChangeCanBeReadInTheCallback) {
    const auto window = world_->openWindow("writer");
    const auto ax = element(window);
    const double width = ax_.attribute(ax, "AXSize").as<Size>()->width;
    std::optional<double> read;
    const Handle observer = ax_.observe(app(window), "AXWindowResized", [&] {
        read = ax_.attribute(ax, "AXSize").as<Size>()->width;
    });
    world_->resizeWindow(window, {40, 0});
    ASSERT_TRUE(runUntil([&] { return read.has_value(); }));
    EXPECT_EQ(read, width + 40);
}

TEST_P(AXObserverContract, AWindowReportsOnlyItsOwnChanges) {
    const auto first = world_->openWindow("writer");
    const auto second = world_->openWindow("writer");
    const auto other = world_->openWindow("painter");
    observe(element(first), "first ");
    observe(app(other), "painter ");
    world_->moveWindow(second, {30, 20});
    world_->closeWindow(second);
    ASSERT_TRUE(runUntil([&] { return !entry(second); }));
    reported_.erase("first AXFocusedWindowChanged");
    EXPECT_THAT(reported_, testing::IsEmpty()) << "except the focus, which may move to the first";
    world_->closeWindow(first);
    EXPECT_THAT(reportedUpTo("first AXUIElementDestroyed"),
                testing::ElementsAre("first AXUIElementDestroyed"));
}

TEST_P(AXObserverContract, AnEndedObservationIsSilentAndMayEndInItsCallback) {
    const auto window = world_->openWindow("writer");
    int ended = 0, once = 0, calls = 0;
    Handle first = ax_.observe(app(window), "AXWindowMoved", [&] { ++ended; });
    Handle second;
    second = ax_.observe(app(window), "AXWindowMoved", [&] {
        ++once;
        second.reset();
    });
    const Handle third = ax_.observe(element(window), "AXWindowMoved", [&] { ++calls; });
    first.reset();
    world_->moveWindow(window, {30, 20});
    ASSERT_TRUE(runUntil([&] { return calls == 1; }));
    world_->moveWindow(window, {30, 20});
    ASSERT_TRUE(runUntil([&] { return calls == 2; }));
    EXPECT_EQ(once, 1);
    EXPECT_EQ(ended, 0);
}

TEST_P(AXObserverContract, ADeadAppReportsNoMovesOrFocus) {
    const auto window = world_->openWindow("writer");
    const auto second = world_->openWindow("writer");
    const auto observed = app(window);
    const auto gone = element(window);
    observe(observed);
    world_->kill("writer");
    ASSERT_TRUE(runUntil([&] { return !entry(window) && !entry(second); }));
    EXPECT_FALSE(ax_.observe(observed, "AXWindowMoved", [] {}));
    EXPECT_FALSE(ax_.observe(gone, "AXUIElementDestroyed", [] {}));
    world_->openWindow("painter");
    reported_.erase("AXUIElementDestroyed");
    EXPECT_THAT(reported_, testing::IsEmpty());
}

} // namespace larkspan::contract
