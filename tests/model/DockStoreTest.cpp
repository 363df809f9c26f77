#include "dock/PinnedApps.h"
#include "model/ModelWorld.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DockStoreTest : public testing::Test, protected ModelWorld {
  protected:
    DockStoreTest()
        : ModelWorld("1440x900 spaces=2, 1280x720") {
        for (const auto* name : {"notes", "mail", "music"})
            mac.install(std::string("com.example.") + name, name);
    }
};

TEST_F(DockStoreTest, DropsAPinnedAppThatIsNoLongerThere) {
    mac.setPinned({"com.example.mail", "com.example.notes"});
    mac.uninstall("com.example.mail");
    start();
    store.reloadPinned();
    EXPECT_EQ(pinned(), "finder notes");
}

TEST_F(DockStoreTest, NamesAnAppThatDoesNotRunAfterItsFile) {
    mac.setPinned({"com.example.mail"});
    start();
    store.reloadPinned();
    EXPECT_EQ(item("mail").name, "mail");
    EXPECT_TRUE(item("mail").isPinned);
    EXPECT_FALSE(item("mail").app);
}

TEST_F(DockStoreTest, GroupsAppsByDisplayAndSpace) {
    const auto notes = launch("notes");
    const auto mail = launch("mail");
    launch("music");
    mac.openWindow(notes);
    mac.openWindow(notes, {.display = mac.displayAt(1)});
    mac.openWindow(mail, {.space = mac.spaceAt(mac.displayAt(0), 1)});
    start();
    EXPECT_EQ(groups(), "notes | (mail) | notes");
    EXPECT_EQ(background(), "finder music");
    EXPECT_THAT(store.groupedScreens(), ElementsAre(mac.displayAt(0), mac.displayAt(1)));
}

TEST_F(DockStoreTest, LetsNoHiddenAppJump) {
    mac.openWindow(launch("mail"));
    const auto notes = launch("notes");
    mac.openWindow(notes);
    start();
    const auto second = mac.displayAt(1);
    mac.moveToDisplay(mac.openWindow(notes), second);
    settle();
    mac.hide(notes);
    settle();
    ASSERT_EQ(groups(), "mail notes | notes");
    mac.switchSpace(mac.displayAt(0), 1);
    settle();
    EXPECT_EQ(groups(), "(mail notes) | notes") << "another Space is shown";
    mac.switchSpace(mac.displayAt(0), 0);
    mac.unplug(second);
    settle();
    EXPECT_EQ(groups(), "mail notes") << "what was on the other display is here now";
    mac.addDisplay("1280x720");
    settle();
    EXPECT_EQ(groups(), "mail notes") << "its windows have stayed here";
    mac.unhide(notes);
    settle();
    EXPECT_EQ(groups(), "mail notes") << "it shows where its tile has been";
}

TEST_F(DockStoreTest, SetsOnlyTheListsThatDiffer) {
    const auto notes = launch("notes");
    mac.openWindow(notes);
    launch("mail");
    start();
    int changes = 0;
    const auto count = [&changes] { ++changes; };
    const auto onPinned = store.pinnedItems().observe(count);
    const auto onGroups = store.windowAppGroups().observe(count);
    const auto onBackground = store.backgroundItems().observe(count);
    mac.activate(notes);
    mac.openWindow(notes);
    settle();
    store.rebuild();
    EXPECT_EQ(changes, 0);
    mac.openWindow(mac.pidOf("com.example.mail"));
    settle();
    EXPECT_EQ(changes, 2) << "the groups and the background items";
}

TEST_F(DockStoreTest, LetsAnAppFlyInFromThePinnedTileThatOpenedIt) {
    mac.setPinned({"com.example.mail", "com.example.notes"});
    mac.world().installed.at("com.example.mail").launchSeconds = 2;
    start();
    store.reloadPinned();
    const Rect tile{300, 0, 60, 70};
    click.click(item("mail"), nullptr, tile);
    launch("notes", {.opensWindow = true});
    settle();
    EXPECT_EQ(groups(), "notes");
    EXPECT_THAT(*store.flyingIn(), IsEmpty())
        << "notes was opened elsewhere, mail has no window yet";
    std::size_t flyingAsGroupsCame = 0;
    const auto watch =
        store.windowAppGroups().observe([&] { flyingAsGroupsCame = store.flyingIn()->size(); });
    mac.scheduler.runFor(2);
    EXPECT_EQ(groups(), "mail notes");
    EXPECT_THAT(*store.flyingIn(), ElementsAre(testing::Pair("com.example.mail", tile)));
    EXPECT_EQ(flyingAsGroupsCame, 1U);
    mac.scheduler.runFor(1);
    EXPECT_THAT(*store.flyingIn(), IsEmpty());
    mac.openWindow(mac.pidOf("com.example.mail"), {.display = mac.displayAt(1)});
    settle();
    EXPECT_THAT(*store.flyingIn(), IsEmpty()) << "a later window does not come from the tile";
}

TEST_F(DockStoreTest, ForgetsThePinnedTileOfAnAppThatOpensNoWindow) {
    const auto opensWindowLater = [](bool quitsFirst) {
        ModelWorld world;
        world.mac.install("com.example.mail", "mail").opensWindow = false;
        world.mac.setPinned({"com.example.mail"});
        world.start();
        world.store.reloadPinned();
        world.click.click(world.item("mail"), nullptr, {});
        world.settle();
        if (quitsFirst) {
            world.mac.quit(world.mac.pidOf("com.example.mail"));
            world.settle();
            world.launch("mail");
        } else {
            world.mac.scheduler.runFor(31);
        }
        world.mac.openWindow(world.mac.pidOf("com.example.mail"));
        world.settle();
        EXPECT_EQ(world.groups(), "mail");
        return world.store.flyingIn().get();
    };
    EXPECT_THAT(opensWindowLater(false), IsEmpty());
    EXPECT_THAT(opensWindowLater(true), IsEmpty());
}

TEST_F(DockStoreTest, NamesTheAppsThatLeaveTheWindowAppsForAWhile) {
    const auto notes = launch("notes");
    const auto window = mac.openWindow(notes);
    mac.openWindow(notes, {.display = mac.displayAt(1)});
    const auto mail = launch("mail", {.opensWindow = true});
    start();
    mac.closeWindow(window);
    settle();
    EXPECT_THAT(*store.leftWindowApps(), IsEmpty()) << "it still stands in another group";
    mac.quit(mail);
    settle();
    EXPECT_THAT(*store.leftWindowApps(), ElementsAre("com.example.mail"));
    launch("mail", {.opensWindow = true});
    settle();
    EXPECT_THAT(*store.leftWindowApps(), IsEmpty()) << "it is back";
    mac.quit(mac.pidOf("com.example.mail"));
    settle();
    mac.scheduler.runFor(1);
    EXPECT_THAT(*store.leftWindowApps(), IsEmpty());
}

TEST_F(DockStoreTest, WritesManyPinnedChangesOnceASecondAfterTheLast) {
    start();
    store.setPinned({"com.example.mail"});
    mac.scheduler.runFor(0.4);
    store.setPinned({"com.example.mail", "com.example.notes"});
    mac.scheduler.runFor(0.4);
    store.setPinned({"com.example.notes"});
    EXPECT_EQ(pinned(), "finder notes") << "shown at once";
    mac.scheduler.runFor(0.9);
    EXPECT_THAT(pinnedAppIdentifiers(platform.dockPreferences), IsEmpty());
    mac.scheduler.runFor(0.2);
    EXPECT_THAT(pinnedAppIdentifiers(platform.dockPreferences), ElementsAre("com.example.notes"));
}

TEST_F(DockStoreTest, FollowsTheDocksListUnlessItsOwnIsUnwritten) {
    start();
    store.setPinned({"com.example.mail"});
    mac.setPinned({"com.example.music"});
    store.reloadPinned();
    EXPECT_EQ(pinned(), "finder mail");
    store.flushPinned();
    settle();
    mac.setPinned({"com.example.music"});
    std::optional<Animation> animation;
    const auto observer = store.pinnedItems().observe([&] { animation = store.animation(); });
    store.reloadPinned();
    EXPECT_EQ(pinned(), "finder music");
    EXPECT_EQ(animation, pinnedListAnimation);
}

TEST_F(DockStoreTest, ForgetsWhereAnAppWasWhenItQuits) {
    const auto notes = launch("notes");
    mac.openWindow(notes);
    start();
    EXPECT_TRUE(store.seenSlots().contains(notes));
    mac.quit(notes);
    settle();
    EXPECT_FALSE(store.seenSlots().contains(notes));
    EXPECT_FALSE(store.seenDisplays().contains(notes));
}

} // namespace
} // namespace larkspan
