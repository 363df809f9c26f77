#include "app/LaunchedApp.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace larkspan {
namespace {

using nlohmann::json;

/// Two displays with two Spaces each, the second of the first display in view nowhere; Notes has a
/// window on the first.
class WindowCommands : public testing::Test {
  protected:
    json state() { return json::parse(app.answer({"state"}).text); }
    ControlAnswer move(WindowId number, SpaceId space) {
        return app.answer({"move-window", std::to_string(number), std::to_string(space)});
    }
    /// The numbers of the Space's windows, as the state reports them.
    json windowsOf(SpaceId space) {
        json numbers = json::array();
        const auto report = state();
        for (const auto& each : report["spaces"])
            if (each["id"] == space)
                for (const auto& reported : each["windows"])
                    numbers.push_back(reported["number"]);
        return numbers;
    }

    sim::SimMac mac{"1440x900 spaces=2, 1440x900 spaces=2"};
    SpaceId first = mac.spaceAt(mac.displayAt(0), 0);
    SpaceId second = mac.spaceAt(mac.displayAt(0), 1);
    ProcessId notes = mac.launch("com.example.notes");
    WindowId window = mac.openWindow(notes);
    LaunchedApp app{mac};
};

TEST_F(WindowCommands, TheStateListsTheSpacesWithTheirWindows) {
    mac.scheduler.runFor(1);
    const auto report = state();
    ASSERT_EQ(report["spaces"].size(), 4U);
    EXPECT_EQ(report["spaces"][0], json({{"id", first},
                                         {"display", mac.displayAt(0)},
                                         {"shown", true},
                                         {"fullScreen", false},
                                         {"windows", {{{"number", window}, {"pid", notes}}}}}));
    EXPECT_EQ(report["spaces"][1]["shown"], false);
    EXPECT_EQ(report["spaces"][1]["windows"], json::array());
    EXPECT_EQ(report["spaces"][3]["display"], mac.displayAt(1));
}

TEST_F(WindowCommands, AMovedWindowIsReportedThereAsSoonAsTheAnswerComes) {
    EXPECT_EQ(move(window, second), ControlAnswer{});
    EXPECT_EQ(mac.world().window(window)->space, second);
    mac.scheduler.runUntilIdle();
    EXPECT_EQ(windowsOf(second), json({window}));
    EXPECT_EQ(windowsOf(first), json::array());
    const auto hexadecimal = fmt::format("{:#x}", window);
    EXPECT_EQ(app.answer({"move-window", hexadecimal, std::to_string(first)}), ControlAnswer{});
    EXPECT_EQ(mac.world().window(window)->space, first);
}

TEST_F(WindowCommands, AMoveBetweenSpacesOutOfViewIsReportedAtOnceToo) {
    const auto third = mac.addSpace(mac.displayAt(0));
    mac.moveToSpace(window, second);
    // Just after a full read, with which the next one would be compared by what is on screen.
    mac.scheduler.runFor(3);
    ASSERT_EQ(windowsOf(second), json({window}));
    EXPECT_EQ(move(window, third), ControlAnswer{});
    mac.scheduler.runUntilIdle();
    EXPECT_EQ(windowsOf(third), json({window}));
}

TEST_F(WindowCommands, EachReasonNotToMoveIsNamed) {
    const auto minimized = mac.openWindow(notes);
    mac.minimize(minimized);
    const auto film = mac.openWindow(mac.launch("com.example.film"), {.display = mac.displayAt(1)});
    mac.enterFullScreen(film);
    const auto filmSpace = *mac.world().window(film)->space;
    mac.scheduler.runFor(5);
    struct Case {
        WindowId window;
        SpaceId space;
        std::string text;
    };
    const std::string onNone =
        "no Space has a window {} (minimised and hidden windows are on no Space)";
    const Case cases[] = {
        {4321, second, fmt::format(fmt::runtime(onNone), 4321)},
        {minimized, second, fmt::format(fmt::runtime(onNone), minimized)},
        {window, 4321, "there is no Space 4321"},
        {window, filmSpace, fmt::format("Space {} belongs to a full-screen window", filmSpace)},
        {film, second, fmt::format("window {} is in full screen", film)},
    };
    for (const auto& each : cases)
        EXPECT_EQ(move(each.window, each.space), (ControlAnswer{ExitCode::rejected, each.text}));
    EXPECT_EQ(mac.world().window(window)->space, first);
    EXPECT_EQ(mac.world().window(film)->space, filmSpace);
}

TEST_F(WindowCommands, AMoveWithoutEffectIsToldAndTheNextIsNotTried) {
    mac.refuseMoves();
    EXPECT_EQ(move(window, second).text,
              fmt::format("window {} did not move to Space {}", window, second));
    mac.refuseMoves(false);
    EXPECT_EQ(move(window, second).text, "windows cannot be moved between Spaces here");
    EXPECT_EQ(mac.world().window(window)->space, first);
}

TEST_F(WindowCommands, AMissingFunctionIsToldAtOnce) {
    mac.removeFunction("SLSMoveWindowsToManagedSpace");
    const double start = mac.scheduler.uptime();
    EXPECT_EQ(move(window, second).text,
              fmt::format("window {} cannot be moved to Space {}", window, second));
    EXPECT_EQ(mac.scheduler.uptime(), start);
}

TEST_F(WindowCommands, WithoutASpaceMapNothingCanBeMoved) {
    mac.removeFunction("CGSCopyManagedDisplaySpaces");
    mac.scheduler.runFor(5);
    EXPECT_EQ(move(window, second).text, "windows cannot be moved between Spaces here");
    EXPECT_EQ(state()["spaces"], json::array());
}

} // namespace
} // namespace larkspan
