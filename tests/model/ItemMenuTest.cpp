#include "model/ModelWorld.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace larkspan {
namespace {

using testing::ElementsAre;

class ItemMenuTest : public testing::Test, protected ModelWorld {
  protected:
    ItemMenuTest() { mac.install("com.example.mail", "mail"); }
    Menu menuOf(const std::string& name) { return menu.menu(item(name), nullptr, {}); }
    /// The lines as a user reads them: "✓ Inbox", "◆ Drafts", "-".
    std::vector<std::string> lines(const std::string& name) {
        std::vector<std::string> lines;
        for (const auto& line : menuOf(name)) {
            const bool isSeparator = line.kind == MenuItem::Kind::separator;
            const char* mark = line.mark == MenuItem::Mark::check     ? "✓ "
                               : line.mark == MenuItem::Mark::diamond ? "◆ "
                                                                      : "";
            lines.push_back(isSeparator ? "-" : mark + line.title);
        }
        return lines;
    }
    void choose(const std::string& name, const std::string& title) {
        for (const auto& line : menuOf(name))
            if (line.title == title) return line.action();
        FAIL() << "no line " << title;
    }
};

TEST_F(ItemMenuTest, ListsWindowsThenWhatCanBeDone) {
    const auto mail = launch("mail");
    mac.openWindow(mail, {.title = "Inbox"});
    mac.minimize(mac.openWindow(mail, {.title = "Drafts"}));
    mac.openWindow(mail);
    mac.activate(mail);
    start();
    const auto found = lines("mail");
    EXPECT_THAT(found, testing::UnorderedElementsAre("✓ Untitled", "Inbox", "◆ Drafts", "-",
                                                     "Keep in Dock", "-", "Hide", "Quit"));
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
    EXPECT_THAT(lines("mail"), ElementsAre("Open", "-", "Remove from Dock"));
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
    EXPECT_THAT(lines("finder"), ElementsAre("Hide"));
}

TEST_F(ItemMenuTest, CannotKeepWhatCannotBeFoundAgain) {
    mac.openWindow(launch("ghost", {.hasBundle = false}));
    start();
    const auto id = store.windowAppGroups->front().items.front().id;
    EXPECT_THAT(lines(id), ElementsAre("✓ Untitled", "-", "Hide", "Quit"));
}

} // namespace
} // namespace larkspan
