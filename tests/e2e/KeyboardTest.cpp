#include "RunningBar.h"

#include <gtest/gtest.h>

#include <X11/keysym.h>

namespace larkspan::e2e {
namespace {

const auto& calculatorApp = testApp("test-xcalc");
const auto& editorApp = testApp("test-xedit");

class Keyboard : public testing::Test {
  protected:
    Keyboard() {
        calculator = openInFront(calculatorApp);
        editor = openInFront(editorApp);
    }

    std::unique_ptr<ChildProcess> openInFront(const TestApp& app) {
        auto process = desktop.open(app);
        EXPECT_TRUE(screen().eventually([&] { return bar.tile(app) && isFront(app); })) << app.id;
        return process;
    }
    bool isFront(const TestApp& app) {
        return screen().classOf(screen().activeWindow()) == app.windowClass &&
               bar.frontApp() == app.id;
    }
    bool isKeyboardTaken() {
        const bool isFree = screen().grabKeyboard();
        if (isFree) screen().letKeyboardGo();
        return !isFree;
    }
    XDisplay& screen() { return desktop.screen(); }

    PrivateDesktop desktop;
    RunningBar bar{desktop};
    std::unique_ptr<ChildProcess> calculator;
    std::unique_ptr<ChildProcess> editor;
};

TEST_F(Keyboard, SelectsATileAndOpensItAndGivesTheFocusBack) {
    EXPECT_EQ(bar.command({"focus"}).exitCode, 0);
    EXPECT_TRUE(isKeyboardTaken());
    EXPECT_TRUE(isFront(editorApp)) << "the active window does not change";
    // From the last tile, the Trash, the search wraps around to the calculator, the first of two
    // with an x.
    screen().tapKey(XK_End);
    screen().tapKey(XK_x);
    screen().tapKey(XK_Return);
    EXPECT_TRUE(screen().eventually([&] { return isFront(calculatorApp); })) << bar.state().dump(1);
    EXPECT_FALSE(isKeyboardTaken());
}

TEST_F(Keyboard, EscapeReturnsFromTheMenuAndFromTheTiles) {
    EXPECT_EQ(bar.command({"focus"}).exitCode, 0);
    screen().tapKey(XK_Up);
    screen().tapKey(XK_Escape);
    EXPECT_EQ(bar.command({"state"}).exitCode, 0);
    EXPECT_TRUE(isKeyboardTaken()) << "the tiles had the focus before the menu";
    screen().tapKey(XK_Escape);
    EXPECT_TRUE(screen().eventually([&] { return !isKeyboardTaken(); }));
    EXPECT_TRUE(isFront(editorApp));
}

TEST_F(Keyboard, ComesWhenTheOtherGrabEnds) {
    ASSERT_TRUE(screen().grabKeyboard());
    EXPECT_EQ(bar.command({"focus"}).exitCode, 0);
    screen().letKeyboardGo();
    EXPECT_TRUE(screen().eventually([&] { return isKeyboardTaken(); }, 2));
}

TEST_F(Keyboard, AClickElsewhereGivesItBack) {
    EXPECT_EQ(bar.command({"focus"}).exitCode, 0);
    bar.clickAt({2, 2, 2, 2});
    EXPECT_TRUE(screen().eventually([&] { return !isKeyboardTaken(); }));
}

} // namespace
} // namespace larkspan::e2e
