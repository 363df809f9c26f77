#include "model/ModelWorld.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;

class IconClickTest : public testing::Test, protected ModelWorld {
  protected:
    IconClickTest()
        : ModelWorld("1440x900 spaces=2") {
        notes = launch("notes");
        mail = launch("mail");
    }
    void clickTile(const std::string& name, ClickModifiers modifiers = {}) {
        const DisplayGroup* group = nullptr;
        for (const auto& each : *store.windowAppGroups())
            for (const auto& tile : each.items)
                if (shortName(tile.id) == name) group = &each;
        const auto tile = item(name);
        click.click(tile, group, {}, modifiers);
        settle();
    }
    bool isHidden(ProcessId pid) { return mac.world().app(pid)->hidden; }
    ProcessId notes = 0;
    ProcessId mail = 0;
};

TEST_F(IconClickTest, HidesTheAppInFrontAndBringsItBack) {
    mac.openWindow(notes);
    mac.openWindow(mail);
    start();
    clickTile("mail");
    EXPECT_TRUE(isHidden(mail));
    mac.scheduler.runFor(2);
    mac.world().reportedFrontmost = mail;
    clickTile("mail");
    EXPECT_FALSE(isHidden(mail)) << "a hidden app is never hidden again, whatever is reported";
    EXPECT_EQ(mac.frontmost(), mail);
    mac.world().reportedFrontmost = notes;
    clickTile("mail");
    EXPECT_TRUE(isHidden(mail)) << "by the last click it is in front";
}

TEST_F(IconClickTest, BringsTheSecondCopyForwardAndNotTheFirst) {
    mac.openWindow(mail);
    const auto second = launch("mail");
    mac.openWindow(second);
    mac.openWindow(notes);
    start();
    mac.hide(second);
    mac.activate(notes);
    settle();
    clickTile(fmt::format("pid:{}", second));
    EXPECT_EQ(mac.frontmost(), second);
    EXPECT_FALSE(isHidden(second));
}

TEST_F(IconClickTest, WaitsOnceForAnAppThatDoesNotAnswer) {
    mac.openWindow(mail);
    start();
    mac.activate(mail);
    settle();
    mac.world().messagingTimeout = 0.5;
    mac.hang(mail);
    const double before = mac.scheduler.uptime();
    clickTile("mail");
    EXPECT_NEAR(mac.scheduler.uptime() - before, 0.5, 0.01);
}

TEST_F(IconClickTest, SendsAwayOnAQuickSecondClickWhateverTheSystemReports) {
    mac.openWindow(notes);
    mac.openWindow(mail);
    mac.activate(mail);
    start();
    clickTile("notes");
    mac.world().reportedFrontmost = mail;
    mac.scheduler.runFor(0.9);
    clickTile("notes");
    EXPECT_TRUE(isHidden(notes));
}

TEST_F(IconClickTest, JudgesALateSecondClickByTheAppInFront) {
    mac.openWindow(notes);
    mac.openWindow(mail);
    mac.activate(mail);
    start();
    clickTile("notes");
    mac.world().reportedFrontmost = mail;
    mac.scheduler.runFor(1.1);
    clickTile("notes");
    EXPECT_FALSE(isHidden(notes));
}

TEST_F(IconClickTest, BringsMinimisedWindowsBackInsteadOfHiding) {
    const auto window = mac.openWindow(mail);
    mac.activate(mail);
    start();
    mac.minimize(window);
    store.pointerOnBarChanged(true);
    settle();
    clickTile("mail");
    EXPECT_FALSE(isHidden(mail));
    EXPECT_FALSE(mac.world().window(window)->minimized);
}

TEST_F(IconClickTest, GoesToTheSpaceOfTheGroupThoughAWindowOfEverySpaceIsInView) {
    mac.openWindow(mail, {.everySpace = true});
    mac.activate(mail);
    start();
    ASSERT_EQ(groups(), "mail | (mail)");
    clickTile("mail");
    EXPECT_FALSE(isHidden(mail)) << "the tile of the Space not shown was clicked";
}

TEST_F(IconClickTest, HidesTheAppInFrontUnseenWithoutPermission) {
    mac.activate(mail);
    start();
    mac.refuseAccessibility();
    clickTile("mail");
    EXPECT_TRUE(isHidden(mail));
}

TEST_F(IconClickTest, LaunchesAPinnedAppThatDoesNotRun) {
    mac.install("com.example.music", "music").launchSeconds = 2;
    mac.pin("com.example.music");
    start();
    store.reloadPinned();
    clickTile("music");
    EXPECT_THAT(*store.launchingIDs(), ElementsAre("com.example.music"));
    mac.scheduler.runFor(2.1);
    EXPECT_TRUE(store.launchingIDs()->empty());
    EXPECT_EQ(groups(), "music");
}

TEST_F(IconClickTest, LetsTheClickedTileMoveUnderThePointerAndNoOther) {
    start();
    mac.scheduler.runUntilIdle();
    ASSERT_EQ(background(), "finder notes mail");
    refresh->setPointerOnBar(true);
    clickTile("notes");
    EXPECT_EQ(groups(), "notes") << "opened again, it has a window now";
    mac.openWindow(mail);
    settle();
    EXPECT_EQ(background(), "finder mail") << "held where it is, under the pointer";
    clickTile("mail");
    settle();
    EXPECT_EQ(groups(), "notes mail") << "to its window, which was there before the click";
    clickTile("mail");
    ASSERT_TRUE(isHidden(mail));
    EXPECT_THAT(store.regroupingIDs(), ElementsAre("com.example.notes")) << "sent away, it is held";
    refresh->setPointerOnBar(false);
    settle();
    EXPECT_EQ(groups(), "notes mail");
    EXPECT_TRUE(store.regroupingIDs().empty());
    clickTile("mail");
    EXPECT_FALSE(isHidden(mail));
    EXPECT_TRUE(store.regroupingIDs().empty()) << "by keyboard nothing is held, nor let go";
}

TEST_F(IconClickTest, GivesUpTheMarkOfAnAppThatNeverComes) {
    start();
    DockItem ghost{.id = "com.example.ghost", .url = "x-ghost:"};
    click.click(ghost, nullptr, {});
    settle();
    EXPECT_EQ(store.launchingIDs()->size(), 1U);
    mac.scheduler.runFor(31);
    EXPECT_TRUE(store.launchingIDs()->empty());
}

TEST_F(IconClickTest, DoesNothingForATileWithoutAppAndPlace) {
    start();
    click.click({.id = "nothing"}, nullptr, {});
    EXPECT_TRUE(store.launchingIDs()->empty());
    EXPECT_TRUE(mac.world().opened.empty());
}

TEST_F(IconClickTest, WithOptionJudgesTheAppLeftBehindByTheLastClick) {
    for (const auto pid : {notes, mail})
        mac.openWindow(pid);
    const auto music = launch("music");
    mac.openWindow(music);
    start();
    clickTile("mail");
    mac.world().frontmost = music;
    clickTile("notes", {.option = true});
    EXPECT_TRUE(isHidden(mail));
    EXPECT_FALSE(isHidden(music));
}

TEST_F(IconClickTest, WithOptionAndCommandHidesAllOthersThatShowSomething) {
    const auto music = launch("music");
    for (const auto pid : {notes, mail})
        mac.openWindow(pid);
    start();
    clickTile("notes", {.option = true, .command = true});
    EXPECT_EQ(mac.frontmost(), notes);
    EXPECT_FALSE(isHidden(notes));
    EXPECT_TRUE(isHidden(mail));
    EXPECT_FALSE(isHidden(music)) << "without windows its tile would only change its place";
}

TEST_F(IconClickTest, WithCommandShowsWhereTheAppLies) {
    mac.openWindow(mail);
    start();
    clickTile("mail", {.command = true});
    EXPECT_THAT(mac.world().revealed, ElementsAre("/Applications/mail.app"));
    EXPECT_EQ(mac.frontmost(), mac.finder());
    EXPECT_FALSE(isHidden(mail));
}

TEST_F(IconClickTest, OpensAnotherInstance) {
    mac.install("com.example.music", "music");
    mac.openWindow(mail);
    start();
    const auto processes = mac.world().apps.size();
    clickTile("mail", {.newInstance = true});
    EXPECT_EQ(mac.world().apps.size(), processes + 1);
    EXPECT_FALSE(isHidden(mail));
    actions.keep("com.example.music");
    clickTile("music", {.newInstance = true});
    EXPECT_THAT(*store.launchingIDs(), ElementsAre("com.example.music")) << "the first is launched";
}

} // namespace
} // namespace larkspan
