#include "app/BarMenu.h"

#include "app/LaunchedApp.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;

class BarMenuTest : public testing::Test {
  protected:
    /// The lines as a user reads them: "[Glass]", "✓ Clear", "-".
    static std::vector<std::string> lines(const Menu& menu) {
        std::vector<std::string> lines;
        for (const auto& line : menu) {
            const char* mark = line.mark == MenuItem::Mark::check ? "✓ " : "";
            if (line.kind == MenuItem::Kind::separator)
                lines.emplace_back("-");
            else if (line.kind == MenuItem::Kind::heading)
                lines.push_back("[" + line.title + "]");
            else
                lines.push_back(mark + line.title);
        }
        return lines;
    }
    std::vector<std::string> checked() {
        std::vector<std::string> titles;
        for (const auto& line : barMenu(app.controller))
            if (line.mark == MenuItem::Mark::check) titles.push_back(line.title);
        return titles;
    }
    void choose(const std::string& title) {
        for (const auto& line : barMenu(app.controller))
            if (line.title == title) return line.action();
        FAIL() << "no line " << title;
    }

    sim::SimMac mac{"1440x900"};
    LaunchedApp app{mac};
};

TEST_F(BarMenuTest, ShowsWhatIsInEffect) {
    EXPECT_THAT(lines(barMenu(app.controller)),
                ElementsAre("[Style]", "Bar", "✓ Island", "[Glass]", "✓ Clear", "Frosted",
                            "[Height]", "Small", "✓ Medium", "Large", "-", "✓ Show Trash",
                            "Reset appearance", "-", "Open Larkspan at login", "Use the macOS Dock",
                            "Quit Larkspan"));
}

TEST_F(BarMenuTest, EachChoiceIsMadeAtOnce) {
    mac.scheduler.runFor(5);
    app.takeCalls();
    for (const auto* title : {"Bar", "Frosted", "Large", "Show Trash", "Open Larkspan at login"})
        choose(title);
    EXPECT_THAT(checked(), ElementsAre("Bar", "Frosted", "Large", "Open Larkspan at login"));
    EXPECT_EQ(mac.defaults.value("style"), PropertyValue("bar"));
    EXPECT_EQ(mac.defaults.value("showsTrash"), PropertyValue(false));
    EXPECT_THAT(app.takeCalls(), ElementsAre("place 1 at 0,0 1440x88"));
    choose("Reset appearance");
    choose("Show Trash");
    choose("Open Larkspan at login");
    EXPECT_THAT(checked(), ElementsAre("Island", "Clear", "Large", "Show Trash"))
        << "the height does not belong to the appearance";
}

TEST_F(BarMenuTest, AHeightOfTheUsersOwnIsNoneOfTheSteps) {
    app.controller.setBarHeight(60);
    EXPECT_THAT(checked(), ElementsAre("Island", "Clear", "Show Trash"));
}

TEST_F(BarMenuTest, OffersNoHeightThatTheDockCannotFollow) {
    mac.removeFunction("CoreDockSetTileSize");
    const auto menu = barMenu(app.controller);
    const auto height = std::ranges::find(menu, "Height", &MenuItem::title);
    ASSERT_NE(height, menu.end());
    EXPECT_EQ(height[1].title,
              "Larkspan cannot resize the Dock on this Mac, so the height stays as it is.");
    EXPECT_FALSE(height[1].isEnabled);
    EXPECT_EQ(height[2].kind, MenuItem::Kind::separator);
}

TEST_F(BarMenuTest, LeadsToTheDockAndOut) {
    mac.scheduler.runFor(5);
    choose("Use the macOS Dock");
    EXPECT_EQ(app.controller.mode(), BarMode::systemDock);
    choose("Quit Larkspan");
    EXPECT_TRUE(mac.application.isTerminating);
}

TEST_F(BarMenuTest, OffersNothingThatTheSystemLacks) {
    sim::SimMac bare;
    bare.removeFunction("CoreDockGetTileSize");
    AppController controller(
        bare.platform(), [](AppController&) { return std::make_unique<RecordingPanels>(); }, false);
    const auto found = lines(barMenu(controller));
    EXPECT_EQ(found.front(), "[Glass]");
    EXPECT_THAT(found, testing::Contains("Hide the bar"));
    EXPECT_THAT(found, testing::Not(testing::Contains("Use the macOS Dock")));
}

} // namespace
} // namespace larkspan
