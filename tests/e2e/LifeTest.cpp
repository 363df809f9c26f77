#include "RunningBar.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace larkspan::e2e {
namespace {

class Life : public testing::Test {
  protected:
    PrivateDesktop desktop;
};

TEST_F(Life, QuittingReleasesTheStripAndATerminationSignalQuits) {
    const auto before = desktop.screen().workArea();
    for (const bool isSignalled : {false, true}) {
        RunningBar bar(desktop);
        EXPECT_TRUE(desktop.screen().eventually([&] {
            return desktop.screen().workArea().height <= before.height - 36;
        })) << "the bar reserves no strip";
        if (isSignalled) bar.process().signal(SIGTERM);
        EXPECT_EQ(isSignalled ? bar.process().waitForExit(10) : bar.quit(), 0);
        EXPECT_TRUE(
            desktop.screen().eventually([&] { return desktop.screen().workArea() == before; }));
    }
}

TEST_F(Life, AKilledBarLeavesNoStripAndStartsAgain) {
    const auto before = desktop.screen().workArea();
    {
        RunningBar bar(desktop);
        bar.process().signal(SIGKILL);
        bar.process().waitForExit(5);
    }
    EXPECT_TRUE(desktop.screen().eventually([&] { return desktop.screen().workArea() == before; }));
    RunningBar again(desktop); // replaces the dead one's socket
    EXPECT_EQ(again.quit(), 0);
}

TEST_F(Life, TheBarIsNotListedAsAWindow) {
    RunningBar bar(desktop);
    const auto editor = desktop.open(testApp("test-xedit"));
    const auto isEditorActive = [&] {
        return desktop.screen().classOf(desktop.screen().activeWindow()) == "Xedit";
    };
    EXPECT_TRUE(desktop.screen().eventually(isEditorActive));
    ASSERT_TRUE(
        desktop.screen().eventually([&] { return bar.tile(testApp("test-xedit")).has_value(); }));
    EXPECT_EQ(bar.state()["groups"].size(), 1);
    EXPECT_EQ(bar.state()["groups"][0]["items"].size(), 1) << bar.state().dump(1);
    // A click outside of all tiles must not take the focus from the focused window.
    const auto area = bar.area();
    bar.clickAt({area.x + 3, area.centerY(), 2, 2});
    EXPECT_TRUE(isEditorActive());
}

TEST_F(Life, ModesSwitchAndASecondStartReopens) {
    const auto before = desktop.screen().workArea();
    RunningBar bar(desktop);
    EXPECT_EQ(bar.command({"mode", "systemDock"}).exitCode, 0);
    EXPECT_TRUE(desktop.screen().eventually([&] {
        return !bar.isShown() && desktop.screen().workArea() == before;
    })) << bar.state().dump(1);

    EXPECT_EQ(runLarkspan(desktop, {}).exitCode, 0) << "a second start ends at once";
    EXPECT_TRUE(desktop.screen().eventually([&] { return bar.isShown(); })) << bar.state().dump(1);
    EXPECT_EQ(bar.state()["mode"], "vantrel");
    EXPECT_TRUE(bar.process().isRunning());
}

TEST_F(Life, CommandsWithoutARunningBarFail) {
    const std::vector<std::vector<std::string>> commands = {
        {"state"}, {"mode", "vantrel"}, {"click", "test-xclock"}, {"quit"}};
    for (const auto& command : commands) {
        const auto result = runLarkspan(desktop, command);
        EXPECT_EQ(result.exitCode, 1) << command.front();
        EXPECT_NE(result.output.find("no running instance"), std::string::npos) << result.output;
    }
}

TEST_F(Life, WithoutADisplayItFailsWithOneLine) {
    auto environment = desktop.environment();
    environment["DISPLAY"] = ":9999";
    const auto result =
        runCommand({{LARKSPAN_PROGRAM}, environment, desktop.home() / "command.log"});
    EXPECT_GT(result.exitCode, 0);
    EXPECT_LT(result.exitCode, 128) << "it crashed";
    EXPECT_EQ(std::ranges::count(result.output, '\n'), 1) << result.output;
}

TEST_F(Life, ALostServerEndsItCleanly) {
    RunningBar bar(desktop);
    desktop.endServer();
    const auto exitCode = bar.process().waitForExit(10);
    ASSERT_TRUE(exitCode) << "it hangs after losing its X server";
    EXPECT_LT(*exitCode, 128) << "it crashed: " << contentsOf(desktop.home() / "larkspan.log");
}

} // namespace
} // namespace larkspan::e2e
