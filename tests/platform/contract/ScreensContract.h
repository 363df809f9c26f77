#pragma once

#include "platform/contract/DesktopWorld.h"

#include <set>

namespace larkspan::contract {

/// What all screens, and the strip that the bar reserves on them, must do.
class ScreensContract : public DesktopContract {
  protected:
    std::vector<Rect> visibleFrames() const {
        std::vector<Rect> frames;
        for (const auto& screen : screens_.screens())
            frames.push_back(screen.visibleFrame);
        return frames;
    }
    /// The frames with that much removed at their lower edges.
    static std::vector<Rect> above(std::vector<Rect> frames, double height) {
        for (auto& frame : frames) {
            frame.y += height;
            frame.height -= height;
        }
        return frames;
    }

    Screens& screens_ = platform_.screens;
};

TEST_P(ScreensContract, BothCoordinateSystemsAgree) {
    const auto screens = screens_.screens();
    ASSERT_FALSE(screens.empty());
    const Rect main = screens.front().frame;
    EXPECT_EQ(main.x, 0);
    EXPECT_EQ(main.y, 0) << "the main screen is first and has both origins";
    std::set<DisplayId> displays{0};
    std::set<std::string> identifiers{""};
    for (const auto& screen : screens) {
        EXPECT_EQ(screen.bounds, (Rect{screen.frame.x, main.height - screen.frame.maxY(),
                                       screen.frame.width, screen.frame.height}));
        EXPECT_EQ(intersection(screen.visibleFrame, screen.frame), screen.visibleFrame);
        EXPECT_FALSE(screen.visibleFrame.isEmpty());
        EXPECT_GE(screen.scale, 1);
        EXPECT_TRUE(displays.insert(screen.display).second);
        EXPECT_TRUE(identifiers.insert(screen.displayIdentifier).second);
    }
}

TEST_P(ScreensContract, AChangeIsAnnouncedWhenItCanBeRead) {
    const auto before = visibleFrames();
    bool hasSeen = false;
    int callsAfterItsEnd = 0;
    const Handle subscription =
        screens_.subscribe([&] { hasSeen = hasSeen || visibleFrames() != before; });
    Handle ended = screens_.subscribe([&] { ++callsAfterItsEnd; });
    ended.reset();
    world_->shrinkVisibleFrame();
    EXPECT_TRUE(runUntil([&] { return hasSeen; }));
    EXPECT_LT(visibleFrames().front().area(), before.front().area());
    EXPECT_EQ(callsAfterItsEnd, 0);
}

TEST_P(ScreensContract, AStripReplacesTheEarlierOneAndIsReleased) {
    const auto before = visibleFrames();
    const auto frame = screens_.screens().front().frame;
    auto& strip = platform_.dockStrip;
    strip.hold(80);
    strip.hold(50);
    EXPECT_EQ(visibleFrames(), above(before, world_->stripTakenFromScreens(50)));
    strip.release();
    EXPECT_EQ(visibleFrames(), before);
    strip.release();
    EXPECT_EQ(visibleFrames(), before);
    EXPECT_EQ(screens_.screens().front().frame, frame);
}

} // namespace larkspan::contract
