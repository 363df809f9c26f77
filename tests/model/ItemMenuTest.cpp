#include "model/ModelWorld.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;

class ItemMenuTest : public testing::Test, protected ModelWorld {
  protected:
    ItemMenuTest() { mac.install("com.example.mail", "mail"); }
    Menu menuOf(const std::string& name) { return menu.menu(item(name), nullptr, {}); }
    /// The lines as a user reads them: "✓ Inbox", "◆ Drafts", "-", "Quit / Force Quit" for a line
    /// that the Option key changes; those of a submenu after a ">".
    static std::vector<std::string> lines(const Menu& menu, const std::string& indent = "") {
        std::vector<std::string> lines;
        for (const auto& line : menu) {
            const bool isSeparator = line.kind == MenuItem::Kind::separator;
            const char* mark = line.mark == MenuItem::Mark::check     ? "✓ "
                               : line.mark == MenuItem::Mark::diamond ? "◆ "
                                                                      : "";
            const auto option = line.alternate ? " / " + line.alternate->title : "";
            lines.push_back(indent + (isSeparator ? "-" : mark + line.title + option));
            for (auto& below : ItemMenuTest::lines(line.submenu, indent + ">"))
                lines.push_back(std::move(below));
        }
        return lines;
    }
    std::vector<std::string> lines(const std::string& name) { return lines(menuOf(name)); }
    static std::function<void()> actionOf(const Menu& menu, const std::string& title) {
        for (const auto& line : menu) {
            if (line.title == title) return line.action;
            if (line.alternate && line.alternate->title == title) return line.alternate->action;
            if (auto action = actionOf(line.submenu, title)) return action;
        }
        return nullptr;
    }
    void choose(const std::string& name, const std::string& title) {
        const auto action = actionOf(menuOf(name), title);
        ASSERT_TRUE(action) << "no line " << title;
        action();
        settle();
    }
    /// Opens the menu; what it shows is noted.
    Handle open(const std::string& name) {
        return menu.open(item(name), nullptr, {},
                         [this](const Menu& lately) { shown.push_back(lines(lately)); });
    }

    std::vector<std::vector<std::string>> shown;
};

TEST_F(ItemMenuTest, ListsWindowsThenWhatCanBeDone) {
    const auto mail = launch("mail");
    mac.openWindow(mail, {.title = "Inbox"});
    mac.minimize(mac.openWindow(mail, {.title = "Drafts"}));
    mac.openWindow(mail);
    mac.activate(mail);
    start();
    const auto found = lines("mail");
    ASSERT_EQ(found.size(), 12U);
    EXPECT_THAT(std::vector(found.begin(), found.begin() + 3),
                testing::UnorderedElementsAre("✓ Untitled", "Inbox", "◆ Drafts"));
    EXPECT_THAT(std::vector(found.begin() + 3, found.end()),
                ElementsAre("-", "Options", ">Keep in Dock", ">Open at Login", ">Show in Finder",
                            "-", "Show All Windows", "Hide / Hide Others", "Quit / Force Quit"));
}

TEST_F(ItemMenuTest, MarksNoWindowOfAnAppThatIsNotInFront) {
    mac.openWindow(launch("mail"), {.title = "Inbox"});
    mac.openWindow(launch("notes"));
    start();
    EXPECT_EQ(lines("mail").front(), "Inbox");
}

TEST_F(ItemMenuTest, MarksNoWindowOfASpaceNotShown) {
    const auto mail = launch("mail");
    const auto window =
        mac.openWindow(mail, {.title = "Inbox", .space = mac.addSpace(mac.displayAt(0))});
    start();
    store.frontAppChanged(mail);
    store.windowsReached(
        {{.id = window, .element = platform.accessibility.createApplication(mail)}});
    EXPECT_EQ(lines("mail").front(), "Inbox");
}

TEST_F(ItemMenuTest, BringsAWindowForward) {
    const auto mail = launch("mail");
    const auto inbox = mac.openWindow(mail, {.title = "Inbox"});
    mac.openWindow(launch("notes"));
    start();
    mac.minimize(inbox);
    settle();
    choose("mail", "Inbox");
    settle();
    EXPECT_EQ(mac.frontmost(), mail);
    EXPECT_EQ(mac.world().windows.front().id, inbox);
    EXPECT_FALSE(mac.world().window(inbox)->minimized);
}

TEST_F(ItemMenuTest, KeepsAndRemoves) {
    mac.openWindow(launch("mail"));
    start();
    choose("mail", "Keep in Dock");
    EXPECT_EQ(pinned(), "finder mail");
    mac.quit(mac.pidOf("com.example.mail"));
    settle();
    EXPECT_THAT(lines("mail"), ElementsAre("Options", ">Remove from Dock", ">Open at Login",
                                           ">Show in Finder", "-", "Open"));
    choose("mail", "Remove from Dock");
    EXPECT_EQ(pinned(), "finder");
}

TEST_F(ItemMenuTest, HidesShowsAndQuits) {
    const auto mail = launch("mail");
    mac.openWindow(mail);
    start();
    choose("mail", "Hide");
    settle();
    EXPECT_TRUE(mac.world().app(mail)->hidden);
    choose("mail", "Show");
    settle();
    EXPECT_FALSE(mac.world().app(mail)->hidden);
    choose("mail", "Quit");
    settle();
    EXPECT_EQ(mac.pidOf("com.example.mail"), 0);
}

TEST_F(ItemMenuTest, LeavesFinderWhereItIs) {
    start();
    EXPECT_THAT(lines("finder"), ElementsAre("Options", ">Show in Finder", "-", "Show All Windows",
                                             "Hide / Hide Others"));
}

TEST_F(ItemMenuTest, CannotKeepWhatCannotBeFoundAgain) {
    mac.openWindow(launch("ghost", {.hasBundle = false}));
    start();
    const auto id = store.windowAppGroups()->front().items.front().id;
    EXPECT_THAT(lines(id), ElementsAre("✓ Untitled", "-", "Show All Windows", "Hide / Hide Others",
                                       "Quit / Force Quit"));
}

TEST_F(ItemMenuTest, OpensAtLoginWhereTheSystemLetsThatBeKnown) {
    mac.openWindow(launch("mail"));
    start();
    choose("mail", "Open at Login");
    EXPECT_THAT(mac.loginItems.applications, ElementsAre("/Applications/mail.app"));
    EXPECT_THAT(lines("mail"), testing::Contains(">✓ Open at Login"));
    choose("mail", "Open at Login");
    EXPECT_TRUE(mac.loginItems.applications.empty());
    mac.loginItems.isKnown = false;
    EXPECT_THAT(lines("mail"), testing::Not(testing::Contains(">Open at Login")));
}

TEST_F(ItemMenuTest, HidesTheOthers) {
    const auto mail = launch("mail");
    const auto notes = launch("notes");
    mac.openWindow(mail);
    mac.openWindow(notes);
    start();
    mac.hide(mail);
    settle();
    choose("mail", "Hide Others");
    EXPECT_TRUE(mac.world().app(notes)->hidden);
    EXPECT_FALSE(mac.world().app(mail)->hidden);
    EXPECT_EQ(mac.frontmost(), mail);
}

TEST_F(ItemMenuTest, TheDockSpreadsTheWindowsOnceTheAppIsInFront) {
    const auto mail = launch("mail");
    mac.openWindow(mail);
    mac.openWindow(launch("notes"));
    start();
    mac.world().activationSeconds = 0.3;
    const std::pair<std::string, ProcessId> told{"com.apple.expose.front.awake", mail};
    choose("mail", "Show All Windows");
    EXPECT_TRUE(mac.world().dockNotifications.empty());
    mac.scheduler.runFor(0.5);
    EXPECT_THAT(mac.world().dockNotifications, ElementsAre(told));
    choose("mail", "Show All Windows");
    EXPECT_THAT(mac.world().dockNotifications, ElementsAre(told, told));
}

TEST_F(ItemMenuTest, WindowsAreNotSpreadLongAfterThatWasAskedFor) {
    const auto mail = launch("mail");
    mac.openWindow(mail);
    mac.openWindow(launch("notes"));
    start();
    mac.world().activationSeconds = 1.5;
    choose("mail", "Show All Windows");
    mac.scheduler.runFor(3);
    EXPECT_EQ(mac.frontmost(), mail);
    EXPECT_TRUE(mac.world().dockNotifications.empty());
}

TEST_F(ItemMenuTest, WithoutTheDocksHelpAllWindowsComeForward) {
    const auto mail = launch("mail");
    const auto inbox = mac.openWindow(mail, {.title = "Inbox"});
    const auto drafts = mac.openWindow(mail, {.title = "Drafts"});
    mac.minimize(inbox);
    const auto other = mac.openWindow(launch("notes"));
    start();
    mac.removeFunction("CoreDockSendNotification");
    choose("mail", "Show All Windows");
    EXPECT_TRUE(mac.world().dockNotifications.empty());
    EXPECT_FALSE(mac.world().window(inbox)->minimized);
    EXPECT_EQ(mac.world().windows.back().id, other);
    EXPECT_EQ(mac.frontmost(), mail);
    EXPECT_FALSE(mac.world().window(drafts)->minimized);
}

TEST_F(ItemMenuTest, SaysThatAnAppDoesNotRespondUntilItDoes) {
    const auto mail = launch("mail");
    mac.openWindow(mail, {.title = "Inbox"});
    start();
    mac.world().messagingTimeout = 0.5;
    mac.hang(mail);
    const double before = mac.scheduler.uptime();
    const auto timers = mac.scheduler.timerCount();
    const auto opened = open("mail");
    EXPECT_EQ(mac.scheduler.uptime(), before) << "the main thread waits for no app";
    mac.scheduler.runFor(3);
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].front(), "Application Not Responding");
    EXPECT_EQ(shown[0].back(), "Force Quit");
    mac.hang(mail, false);
    mac.scheduler.runFor(1.5);
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1].front(), "✓ Inbox");
    EXPECT_EQ(shown[1].back(), "Quit / Force Quit");
    EXPECT_EQ(mac.scheduler.timerCount(), timers) << "an app that answers is asked once";
}

TEST_F(ItemMenuTest, ShowsWithoutTheWindowsOfAnAppThatTakesItsTime) {
    mac.openWindow(launch("mail"), {.title = "Inbox"});
    start();
    mac.scheduler.queueLatency = 0.3;
    const auto opened = open("mail");
    mac.scheduler.runFor(0.15);
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0].front(), "Options");
    mac.scheduler.runFor(0.3);
    ASSERT_EQ(shown.size(), 2U);
    EXPECT_EQ(shown[1].front(), "✓ Inbox");
}

TEST_F(ItemMenuTest, AMenuThatWasClosedIsShownNoMore) {
    const auto mail = launch("mail");
    mac.openWindow(mail);
    start();
    mac.hang(mail);
    auto opened = open("mail");
    opened.reset();
    mac.scheduler.runFor(20);
    EXPECT_TRUE(shown.empty());
}

TEST_F(ItemMenuTest, AnAppThatIsLaunchingIsNotSaidToHang) {
    const auto mail = launch("mail", {.launchSeconds = 60});
    mac.hang(mail);
    start();
    EXPECT_THAT(lines("mail"), testing::Not(testing::Contains("Application Not Responding")));
}

TEST_F(ItemMenuTest, ForceQuitEndsAnAppThatDoesNotAnswer) {
    const auto mail = launch("mail");
    mac.openWindow(mail);
    start();
    mac.hang(mail);
    choose("mail", "Force Quit");
    EXPECT_EQ(mac.pidOf("com.example.mail"), 0);
}

} // namespace
} // namespace larkspan
