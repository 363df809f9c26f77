#include "RunningBar.h"

#include <X11/keysym.h>

#include <gtest/gtest.h>

namespace larkspan::e2e {
namespace {

const auto& xedit = testApp("test-xedit");
const auto& xclock = testApp("test-xclock");
const auto& xeyes = testApp("test-xeyes");
const auto& xcalc = testApp("test-xcalc");

/// The bar follows real clients: each step changes something through the X server, then checks both
/// the report and the pixels.
class Clients : public testing::Test {
  protected:
    void TearDown() override {
        if (HasFailure())
            ADD_FAILURE() << "its log: " << contentsOf(desktop.home() / "larkspan.log");
    }

    void expectWindows(const TestApp& app, int windows) {
        EXPECT_TRUE(screen().eventually([&] {
            const auto item = bar.item(app.id);
            return item && item->section == "groups" && item->value<bool>("running") &&
                   item->value<int>("windows") == windows;
        })) << app.id
            << " should have " << windows << " windows: " << bar.state().dump(1);
        EXPECT_TRUE(screen().eventually([&] { return bar.tile(app).has_value(); }))
            << app.id << " has no tile on the screen";
    }

    void expectGone(const TestApp& app) {
        EXPECT_TRUE(screen().eventually([&] { return !bar.item(app.id); })) << app.id;
        EXPECT_TRUE(screen().eventually([&] { return !bar.tile(app); }))
            << app.id << "'s tile is still on the screen";
    }

    void expectFront(const TestApp& app) {
        EXPECT_TRUE(screen().eventually([&] {
            return screen().classOf(screen().activeWindow()) == app.windowClass &&
                   bar.frontApp() == app.id;
        })) << app.id
            << " should be in front, not " << screen().classOf(screen().activeWindow()) << " and "
            << bar.frontApp();
    }

    bool isHidden(const TestApp& app) {
        const auto item = bar.item(app.id);
        return item && item->value<bool>("hidden");
    }

    XDisplay& screen() { return desktop.screen(); }

    PrivateDesktop desktop;
    RunningBar bar{desktop};
};

TEST_F(Clients, AppearWithTheirWindowsAndGoWithThem) {
    const auto firstEditor = desktop.open(xedit);
    expectWindows(xedit, 1);
    auto secondEditor = desktop.open(xedit);
    expectWindows(xedit, 2);
    for (const auto* app : {&xclock, &xeyes, &xcalc})
        EXPECT_FALSE(bar.item(app->id)) << app->id;

    const auto clock = desktop.open(xclock);
    const auto eyes = desktop.open(xeyes);
    auto calculator = desktop.open(xcalc);
    for (const auto* app : {&xclock, &xeyes, &xcalc})
        expectWindows(*app, 1);

    screen().close(*screen().windowOfClass("XEyes"));
    expectGone(xeyes);
    secondEditor.reset(); // killed: its window just disappears
    expectWindows(xedit, 1);
    calculator.reset();
    expectGone(xcalc);
    expectWindows(xclock, 1);
}

TEST_F(Clients, AreBroughtForwardHiddenAndShownByClicks) {
    // One after the other, so that the frontmost one is known.
    const auto editor = desktop.open(xedit);
    expectWindows(xedit, 1);
    expectFront(xedit);
    const auto calculator = desktop.open(xcalc);
    expectWindows(xcalc, 1);
    expectFront(xcalc);
    const auto editorWindow = *screen().windowOfClass("Xedit");

    bar.click(xedit);
    expectFront(xedit);
    bar.click(xcalc);
    expectFront(xcalc);
    bar.click(xedit);
    expectFront(xedit);

    const auto whileFront = screen().picture(bar.area());
    bar.click(xedit);
    EXPECT_TRUE(screen().eventually([&] { return screen().isIconified(editorWindow); }));
    EXPECT_TRUE(screen().eventually([&] { return isHidden(xedit); })) << bar.state().dump(1);
    EXPECT_TRUE(screen().eventually([&] { return screen().picture(bar.area()) != whileFront; }))
        << "the bar looks the same with the app hidden";
    EXPECT_TRUE(screen().eventually([&] { return bar.tile(xedit).has_value(); }))
        << "a hidden app keeps its tile";

    bar.click(xedit);
    EXPECT_TRUE(screen().eventually([&] { return !screen().isIconified(editorWindow); }));
    EXPECT_TRUE(screen().eventually([&] { return !isHidden(xedit); }));
    expectFront(xedit);
    expectWindows(xedit, 1);
}

TEST_F(Clients, MinimizedByTheWindowManagerComeBackByAClick) {
    const auto firstEditor = desktop.open(xedit);
    const auto clock = desktop.open(xclock);
    expectWindows(xclock, 1);
    expectWindows(xedit, 1);
    const auto before = screen().picture(bar.area());
    const auto clockWindow = *screen().windowOfClass("XClock");

    screen().minimize(clockWindow);
    ASSERT_TRUE(screen().eventually([&] { return screen().isIconified(clockWindow); }));
    EXPECT_TRUE(screen().eventually([&] { return screen().picture(bar.area()) != before; }))
        << "the bar looks the same with the clock minimised";
    EXPECT_TRUE(screen().eventually([&] {
        const auto item = bar.item(xclock.id);
        return item && (item->section == "background" || item->value<bool>("hidden"));
    })) << bar.state().dump(1);

    bar.click(xclock);
    EXPECT_TRUE(screen().eventually([&] { return !screen().isIconified(clockWindow); }));
    expectWindows(xclock, 1);
}

TEST_F(Clients, PinnedOnesAreLaunchedByAClick) {
    EXPECT_EQ(bar.command({"pin", xcalc.id}).exitCode, 0);
    ASSERT_TRUE(screen().eventually([&] { return bar.tile(xcalc).has_value(); }));
    EXPECT_FALSE(bar.item(xcalc.id)->value<bool>("running"));

    bar.click(xcalc);
    ASSERT_TRUE(screen().eventually([&] { return screen().windowOfClass("XCalc").has_value(); }));
    EXPECT_TRUE(screen().eventually([&] {
        const auto item = bar.item(xcalc.id);
        return item && item->value<bool>("running") && item->value<int>("windows") == 1;
    })) << bar.state().dump(1);

    screen().close(*screen().windowOfClass("XCalc"));
    EXPECT_TRUE(screen().eventually([&] {
        const auto item = bar.item(xcalc.id);
        return item && item->section == "pinned" && !item->value<bool>("running");
    })) << bar.state().dump(1);
    EXPECT_TRUE(screen().eventually([&] { return bar.tile(xcalc).has_value(); }))
        << "a pinned app keeps its tile";
}

TEST_F(Clients, OpenAnotherWindowByTheMiddleButton) {
    const auto editor = desktop.open(xedit);
    expectWindows(xedit, 1);
    bar.click(xedit, 2);
    expectWindows(xedit, 2);
    screen().close(screen().activeWindow());
    expectWindows(xedit, 1);
}

TEST_F(Clients, AreLeftBehindHiddenByASuperClick) {
    const auto editor = desktop.open(xedit);
    expectFront(xedit);
    const auto editorWindow = *screen().windowOfClass("Xedit");
    const auto calculator = desktop.open(xcalc);
    expectFront(xcalc);
    const auto calculatorWindow = *screen().windowOfClass("XCalc");
    screen().holdKey(XK_Super_L, true);
    bar.click(xedit);
    screen().holdKey(XK_Super_L, false);
    expectFront(xedit);
    EXPECT_TRUE(screen().eventually([&] { return screen().isIconified(calculatorWindow); }));
    EXPECT_FALSE(screen().isIconified(editorWindow));
}

TEST_F(Clients, AreMovedToAnotherDesktopByCommand) {
    const auto editor = desktop.open(xedit);
    expectWindows(xedit, 1);
    const auto window = *screen().windowOfClass("Xedit");
    const auto spaces = bar.state()["spaces"];
    ASSERT_GE(spaces.size(), 2U) << "the test needs at least two Spaces";
    const auto holds = [&](const nlohmann::json& space) {
        return space["windows"].size() == 1 && space["windows"][0]["number"] == window;
    };
    EXPECT_TRUE(holds(spaces[0])) << spaces.dump(1);
    const auto move = [&](const nlohmann::json& space) {
        return bar.command({"move-window", std::to_string(window),
                            std::to_string(space["id"].get<unsigned long>())});
    };
    const auto moved = move(spaces[1]);
    EXPECT_EQ(moved.exitCode, 0) << moved.output;
    EXPECT_EQ(screen().desktopOf(window), 1U);
    EXPECT_TRUE(screen().eventually([&] { return holds(bar.state()["spaces"][1]); }))
        << bar.state().dump(1);
    EXPECT_EQ(bar.state()["groups"][0]["space"], spaces[1]["id"]);

    const auto unknown = bar.command({"move-window", "1", "1"});
    EXPECT_EQ(unknown.exitCode, 2);
    EXPECT_NE(unknown.output.find("no Space has a window 1"), std::string::npos) << unknown.output;
}

TEST_F(Clients, FillingTheScreenHideTheBar) {
    const auto clock = desktop.open(xclock);
    expectWindows(xclock, 1);
    const auto clockWindow = *screen().windowOfClass("XClock");
    screen().setFullScreen(clockWindow, true);
    EXPECT_TRUE(screen().eventually([&] { return !bar.isShown(); })) << bar.state().dump(1);
    screen().setFullScreen(clockWindow, false);
    EXPECT_TRUE(screen().eventually([&] { return bar.isShown() && bar.tile(xclock); }));
}

} // namespace
} // namespace larkspan::e2e
