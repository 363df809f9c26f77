#include "model/BadgeRefresh.h"

#include "model/ModelWorld.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class BadgeRefreshTest : public testing::Test, protected ModelWorld {
  protected:
    explicit BadgeRefreshTest(bool announcesChanges = false) {
        mac.setAnnouncesChanges(announcesChanges);
        mac.setPinned({"com.example.mail"});
        mail = launch("mail");
        notes = launch("notes", {.opensWindow = true});
        start();
        settle();
        readDock();
    }
    void readDock() {
        badges.emplace(store, platform.scheduler, platform.workspace, platform.accessibility,
                       platform.coreDock, platform.notices, log);
        mac.scheduler.runFor(3);
    }
    bool bounces(const std::string& name) {
        return store.attentionIDs()->contains("com.example." + name);
    }

    ProcessId mail = 0;
    ProcessId notes = 0;
    std::optional<BadgeRefresh> badges;
};

TEST_F(BadgeRefreshTest, ShowsTheDocksLabelsWithinASecond) {
    mac.setBadge(mail, "3");
    mac.setBadge(notes, "new");
    mac.scheduler.runFor(1.1);
    EXPECT_THAT(*store.badges(),
                ElementsAre(Pair("com.example.mail", "3"), Pair("com.example.notes", "new")));
    mac.setBadge(mail, "");
    mac.scheduler.runFor(1.1);
    EXPECT_THAT(*store.badges(), ElementsAre(Pair("com.example.notes", "new")));
    EXPECT_THAT(newLines("badges"),
                ElementsAre("badge of com.example.mail is 3", "badge of com.example.notes is new",
                            "com.example.mail has no badge"));
}

TEST_F(BadgeRefreshTest, TellsTwoCopiesOfOneAppApart) {
    const auto second = launch("mail");
    settle();
    mac.setBadge(second, "2");
    mac.scheduler.runFor(1.1);
    EXPECT_THAT(*store.badges(), ElementsAre(Pair(fmt::format("pid:{}", second), "2")));
}

TEST_F(BadgeRefreshTest, ABounceAsksForAttentionUntilItIsOver) {
    mac.requestAttention(mail, false);
    mac.scheduler.runFor(0.7);
    EXPECT_TRUE(bounces("mail"));
    mac.scheduler.runFor(2);
    EXPECT_TRUE(bounces("mail")) << "it might bounce again";
    mac.scheduler.runFor(2);
    EXPECT_FALSE(bounces("mail"));
}

TEST_F(BadgeRefreshTest, AnUrgentRequestLastsUntilTheAppComesForward) {
    mac.requestAttention(mail, true);
    mac.scheduler.runFor(60);
    EXPECT_TRUE(bounces("mail"));
    mac.activate(mail);
    settle();
    EXPECT_FALSE(bounces("mail")) << "at once, not at the next read";
    mac.scheduler.runFor(10);
    EXPECT_FALSE(bounces("mail"));
    mac.activate(notes);
    mac.scheduler.runFor(5);
    mac.requestAttention(mail, true);
    mac.scheduler.runFor(1);
    EXPECT_TRUE(bounces("mail")) << "a new request counts again";
}

TEST_F(BadgeRefreshTest, AnIconThatComesDownAfterItsAppCameForwardAsksForNothing) {
    mac.requestAttention(mail, true);
    mac.scheduler.runFor(1);
    store.acknowledgeAttention("com.example.mail");
    ASSERT_FALSE(bounces("mail"));
    mac.scheduler.runFor(0.9);
    EXPECT_FALSE(bounces("mail"));
    mac.scheduler.runFor(0.6);
    EXPECT_TRUE(bounces("mail"));
}

TEST_F(BadgeRefreshTest, AnAppInFrontAsksNobody) {
    mac.activate(mail);
    mac.scheduler.runFor(2);
    mac.world().app(mail)->attention = sim::AttentionRequest{true, mac.scheduler.uptime()};
    mac.scheduler.runFor(5);
    EXPECT_THAT(*store.attentionIDs(), IsEmpty());
}

TEST_F(BadgeRefreshTest, AnAppThatIsNotKnownToRunYetIsAboutToStart) {
    mac.install("com.example.music", "music");
    mac.pin("com.example.music");
    store.reloadPinned();
    mac.scheduler.runFor(2);
    mac.loseEvents();
    launch("music", {.launchSeconds = 10, .inBackground = true});
    for (int quarter = 0; quarter < 6; ++quarter) {
        mac.scheduler.runFor(0.25);
        EXPECT_THAT(*store.attentionIDs(), IsEmpty()) << quarter;
    }
}

TEST_F(BadgeRefreshTest, ADockAtTheSideMovesItsIconsOtherwise) {
    auto dock = mac.world().dock;
    dock.place.orientation = 3;
    mac.setDock(dock);
    mac.setBadge(mail, "3");
    mac.scheduler.runFor(3);
    EXPECT_THAT(*store.attentionIDs(), IsEmpty());
    EXPECT_EQ(store.badges()->at("com.example.mail"), "3");
}

TEST_F(BadgeRefreshTest, SaysOnceThatTheDockDoesNotAnswerAndOnceThatItDoes) {
    newLines("badges");
    mac.requestAttention(mail, true);
    mac.scheduler.runFor(1);
    EXPECT_THAT(newLines("badges"), ElementsAre("com.example.mail wants attention"));
    mac.hang(mac.pidOf("com.apple.dock"));
    mac.scheduler.runFor(20);
    EXPECT_FALSE(bounces("mail")) << "a request is not believed for ever";
    mac.quit(mail);
    mac.hang(mac.pidOf("com.apple.dock"), false);
    mac.scheduler.runFor(2);
    EXPECT_THAT(newLines("badges"),
                ElementsAre("the Dock's icons cannot be read; badges stay as they were",
                            "the Dock's icons can be read again"));
}

TEST_F(BadgeRefreshTest, HasOneReadInFlightAtMost) {
    mac.scheduler.queueLatency = 2;
    constexpr int calls = 1000;
    mac.dieDuringRead(mac.pidOf("com.apple.dock"), calls);
    mac.scheduler.runFor(0.3);
    EXPECT_EQ(mac.scheduler.waitingTasks("dock items"), 1U);
    mac.scheduler.runFor(4.2);
    const int made = calls - *mac.world().appOf("com.apple.dock")->callsUntilDeath;
    EXPECT_GT(made, 0);
    EXPECT_LT(made, 30) << "two reads, not one for each quarter of a second";
}

class AnnouncedBadges : public BadgeRefreshTest {
  protected:
    AnnouncedBadges()
        : BadgeRefreshTest(true) {}
};

TEST_F(AnnouncedBadges, AreFollowedWithoutBeingWokenInVain) {
    EXPECT_EQ(mac.scheduler.timerCount(), 0U);
    mac.setBadge(mail, "3");
    settle();
    EXPECT_THAT(*store.badges(), ElementsAre(Pair("com.example.mail", "3")));
    readDock();
    EXPECT_THAT(*store.badges(), ElementsAre(Pair("com.example.mail", "3"))) << "from the start";
    mac.setBadge(mail, "");
    mac.requestAttention(mail, true);
    settle();
    EXPECT_THAT(*store.badges(), IsEmpty());
    EXPECT_TRUE(bounces("mail"));
    mac.scheduler.runFor(60);
    EXPECT_TRUE(bounces("mail")) << "it has not taken its wish back";
    mac.setBadge(notes, "1");
    settle();
    EXPECT_TRUE(bounces("mail"));
    store.acknowledgeAttention("com.example.mail");
    EXPECT_FALSE(bounces("mail"));
    mac.scheduler.runFor(5);
    mac.setBadge(notes, "2");
    settle();
    EXPECT_FALSE(bounces("mail")) << "the same wish again";
    mac.activate(mail);
    settle();
    mac.activate(notes);
    settle();
    mac.scheduler.runFor(1);
    mac.requestAttention(mail, true);
    settle();
    EXPECT_TRUE(bounces("mail")) << "a new one";
}

TEST_F(BadgeRefreshTest, AReadThatComesBackLateFindsNobody) {
    mac.scheduler.queueLatency = 1;
    mac.scheduler.runFor(0.3);
    badges.reset();
    mac.setBadge(mail, "3");
    mac.scheduler.runFor(3);
    EXPECT_THAT(*store.badges(), IsEmpty());
}

} // namespace
} // namespace larkspan
