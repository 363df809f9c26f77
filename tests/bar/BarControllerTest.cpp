#include "bar/BarController.h"

#include "bar/BarWorld.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Screens whose strips a test chooses, on a Mac that is otherwise as usual.
class StripScreens : public Screens {
  public:
    std::vector<Screen> screens() const override { return list; }
    Handle subscribe(std::function<void()> callback) override {
        return changed.subscribe(std::move(callback));
    }
    void set(std::vector<Screen> screens) {
        list = std::move(screens);
        changed.emit();
    }
    std::vector<Screen> list;
    Signal<> changed;
};

Screen screen(DisplayId display, Rect frame, double strip = 70) {
    return {.display = display,
            .frame = frame,
            .visibleFrame = {frame.x, frame.y + strip, frame.width, frame.height - strip}};
}

const Rect left{0, 0, 1440, 900};
const Rect right{1440, 0, 1280, 720};

class BarControllerTest : public testing::Test, protected BarWorld {
  protected:
    BarControllerTest() {
        start();
        // As wide as the screen, whatever stands on it.
        look.style.set(BarStyle::bar);
    }
    /// What was logged since the last time.
    std::vector<std::string> takeLog() {
        std::vector<std::string> lines;
        for (; logged_ < log.lines().size(); ++logged_) {
            const auto& line = log.lines()[logged_];
            if (line.category != "windows") lines.push_back(line.category + ": " + line.text);
        }
        return lines;
    }

    StripScreens screens;
    BarController bars{
        mac.scheduler, store, screens, platform.coreDock, [this] { return makeInteraction(); },
        panels,        log,   72};

  private:
    std::size_t logged_ = 0;
};

TEST_F(BarControllerTest, EachScreenWithAStripGetsABar) {
    screens.list = {screen(1, left), screen(2, right, 0), screen(3, {-800, 0, 800, 600}, 1)};
    bars.show();
    EXPECT_THAT(panels.calls, ElementsAre("make 1", "place 1 at 0,0 1440x72", "make 3",
                                          "place 3 at -800,0 800x72", "in 1", "in 3"));
    EXPECT_THAT(takeLog(), ElementsAre("bar: no Space of their own; bars stay on every desktop",
                                       "layout: bars built again for 2; Dock strip on "
                                       "[(0, 0, 1440, 900), (-800, 0, 800, 600)]"));
    EXPECT_THAT(store.barFrames(), ElementsAre(Rect{0, 0, 1440, 72}, Rect{-800, 0, 800, 72}));
}

TEST_F(BarControllerTest, TheSameScreensOnlyCheckVisibility) {
    screens.list = {screen(1, left)};
    bars.show();
    panels.calls.clear();
    takeLog();
    screens.set({screen(1, left, 50)});
    EXPECT_THAT(panels.calls, IsEmpty());
    EXPECT_THAT(takeLog(), ElementsAre("layout: same screens; Dock strip on [(0, 0, 1440, 900)]; "
                                       "only visibility checked"));
}

TEST_F(BarControllerTest, AsManyScreensElsewhereMoveTheBars) {
    screens.list = {screen(1, left), screen(2, right)};
    bars.show();
    panels.calls.clear();
    takeLog();
    screens.set({screen(2, {0, 0, 1280, 720}), screen(7, {1280, 0, 1024, 768})});
    EXPECT_THAT(panels.calls, ElementsAre("place 2 at 0,0 1280x72", "place 7 at 1280,0 1024x72"));
    EXPECT_THAT(takeLog(), ElementsAre("layout: bars moved to the new screen frames"));
}

TEST_F(BarControllerTest, AnotherNumberOfScreensBuildsTheBarsAgain) {
    screens.list = {screen(1, left)};
    bars.show();
    panels.calls.clear();
    screens.set({screen(1, left), screen(2, right)});
    EXPECT_THAT(panels.calls, ElementsAre("close 1", "make 1", "place 1 at 0,0 1440x72", "make 2",
                                          "place 2 at 1440,0 1280x72", "in 1", "in 2"));
}

TEST_F(BarControllerTest, ABarThatGoesFromUnderThePointerHoldsNoTiles) {
    screens.list = {screen(1, left), screen(2, right)};
    bars.show();
    const auto putPointerOn = [this](std::size_t bar) {
        bars.bars()[bar].interaction->setPointerInside(true);
        return store.isPointerOnBar();
    };
    EXPECT_TRUE(putPointerOn(0));
    bars.fullScreenChanged({.spaces = {right}, .windows = {}});
    EXPECT_TRUE(store.isPointerOnBar()) << "that was the other bar";
    bars.fullScreenChanged({.spaces = {left}, .windows = {}});
    EXPECT_FALSE(store.isPointerOnBar());
    EXPECT_TRUE(putPointerOn(1));
    screens.set({screen(1, left)});
    EXPECT_FALSE(store.isPointerOnBar()) << "others were built in its place";
    EXPECT_FALSE(putPointerOn(0)) << "it is covered";
    bars.fullScreenChanged({});
    EXPECT_TRUE(putPointerOn(0));
    bars.hide();
    EXPECT_FALSE(store.isPointerOnBar());
}

TEST_F(BarControllerTest, TheFrameOfAnIslandGrowsWithItsTiles) {
    look.style.set(BarStyle::island);
    screens.list = {screen(1, left)};
    bars.show();
    const Rect before = store.barFrames().front();
    mac.install("com.example.mail", "Mail");
    mac.openWindow(launch("mail"));
    settle();
    const Rect after = store.barFrames().front();
    EXPECT_GT(after.width, before.width);
    EXPECT_LT(after.x, before.x);
}

TEST_F(BarControllerTest, AStripThatVanishesWithoutReasonLeavesTheBars) {
    screens.list = {screen(1, left)};
    bars.show();
    panels.calls.clear();
    takeLog();
    screens.set({});
    EXPECT_THAT(panels.calls, IsEmpty());
    EXPECT_THAT(takeLog(),
                ElementsAre("layout: no screen has a Dock strip; bars stay as they are"));
    EXPECT_EQ(bars.warning(), std::nullopt);
}

TEST_F(BarControllerTest, AStripThatTheDockTookAwayLeavesAWarning) {
    screens.list = {screen(1, left)};
    bars.show();
    mac.setDock({.autoHide = true});
    screens.set({screen(1, left, 0)});
    EXPECT_THAT(bars.bars(), IsEmpty());
    EXPECT_TRUE(bars.warning()->starts_with("The Dock is set to hide itself"));
    mac.setDock({});
    screens.set({screen(1, left)});
    EXPECT_THAT(bars.bars(), SizeIs(1));
    EXPECT_EQ(bars.warning(), std::nullopt);
}

TEST_F(BarControllerTest, ACoveredScreenHidesItsBarAlone) {
    screens.list = {screen(1, left), screen(2, right)};
    bars.show();
    panels.calls.clear();
    takeLog();
    // The listed frame is a rounded one.
    bars.fullScreenChanged({.spaces = {{0, 1, 1441, 899}}, .windows = {}});
    EXPECT_THAT(panels.takeCalls(), ElementsAre("out 1"));
    EXPECT_THAT(takeLog(), ElementsAre("bar: the window list now shows full-screen Spaces on "
                                       "[(0, 1, 1441, 899)], screen-sized windows on []",
                                       "bar: display 1 cover space, revealed false, wanted false"));
    EXPECT_THAT(store.barFrames(), ElementsAre(Rect{1440, 0, 1280, 72}));
    bars.fullScreenChanged({.spaces = {}, .windows = {right}});
    EXPECT_THAT(panels.takeCalls(), ElementsAre("in 1", "out 2"));
    EXPECT_THAT(takeLog(), Contains("bar: display 2 cover window, revealed false, wanted false"));
}

TEST_F(BarControllerTest, ABarBelievesTheFrontAppsWindowForAWhile) {
    screens.list = {screen(1, left), screen(2, right)};
    bars.show();
    panels.calls.clear();
    takeLog();
    bars.windowGrew(left);
    EXPECT_THAT(panels.takeCalls(), ElementsAre("out 1"));
    EXPECT_THAT(
        takeLog(),
        ElementsAre("bar: the front app's window fills [(0, 0, 1440, 900)]; bars there slide away",
                    "bar: display 1 cover window, revealed false, wanted false"));
    mac.scheduler.runFor(1);
    bars.windowShrank(left);
    EXPECT_THAT(panels.takeCalls(), ElementsAre("in 1"));
    EXPECT_THAT(takeLog(), Contains("bar: the front app's window on [(0, 0, 1440, 900)] shrinks; "
                                    "bars there slide back"));
    bars.windowGrew(left);
    mac.scheduler.runFor(1);
    EXPECT_THAT(panels.takeCalls(), ElementsAre("out 1"));
    mac.scheduler.runFor(1);
    EXPECT_THAT(panels.takeCalls(), ElementsAre("in 1")) << "the window list has not confirmed it";
}

TEST_F(BarControllerTest, TheGuessGivesWayToFullScreenSpacesAndIsConfirmedByAWindow) {
    screens.list = {screen(1, left), screen(2, right)};
    bars.show();
    bars.windowGrew(right);
    bars.fullScreenChanged({.spaces = {}, .windows = {right}});
    mac.scheduler.runFor(5);
    panels.calls.clear();
    takeLog();
    bars.windowShrank(right);
    bars.fullScreenChanged({.spaces = {left, right}, .windows = {}});
    EXPECT_THAT(panels.takeCalls(), ElementsAre("in 2", "out 1", "out 2"));
    EXPECT_THAT(takeLog(), Contains("bar: macOS shows full-screen Spaces on [(0, 0, 1440, 900), "
                                    "(1440, 0, 1280, 720)]; the bar's guesses give way"));
    mac.scheduler.runFor(5);
    EXPECT_THAT(panels.takeCalls(), IsEmpty());
}

TEST_F(BarControllerTest, GuessesEndWithTheScreensTheyWereAbout) {
    screens.list = {screen(1, left)};
    bars.show();
    bars.windowGrew(left);
    panels.calls.clear();
    screens.set({screen(3, left)});
    EXPECT_THAT(panels.takeCalls(), ElementsAre("place 3 at 0,0 1440x72", "in 3"));
}

TEST_F(BarControllerTest, HiddenBarsComeBackToScreensThatChangedMeanwhile) {
    screens.list = {screen(1, left)};
    bars.show();
    bars.hide();
    EXPECT_THAT(store.barFrames(), IsEmpty());
    panels.calls.clear();
    screens.set({screen(1, right)});
    EXPECT_THAT(panels.calls, IsEmpty()) << "bars that are not wanted stay where they are";
    bars.show();
    EXPECT_THAT(panels.calls, ElementsAre("place 1 at 1440,0 1280x72", "in 1"));
}

TEST_F(BarControllerTest, TheHeightIsTakenAtOnce) {
    screens.list = {screen(1, left)};
    bars.show();
    panels.calls.clear();
    bars.setHeight(72);
    EXPECT_THAT(panels.calls, IsEmpty());
    bars.setHeight(40);
    EXPECT_THAT(panels.calls, ElementsAre("place 1 at 0,0 1440x40"));
    EXPECT_THAT(store.barFrames(), ElementsAre(Rect{0, 0, 1440, 40}));
}

} // namespace
} // namespace larkspan
