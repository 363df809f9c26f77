#include "adapters/sim/world/PrivateFunctions.h"
#include "app/LaunchedApp.h"
#include "dock/DockBand.h"
#include "dock/DockProfile.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace larkspan {
namespace {

using nlohmann::json;
using testing::Contains;
using testing::ElementsAre;

constexpr const char* notesId = "com.example.notes";
constexpr const char* mailId = "com.example.mail";

/// Notes and Mail run with a window each, Mail in front.
class Faults : public testing::Test {
  protected:
    Faults() {
        mac.install(notesId, "Notes");
        mac.install(mailId, "Mail");
        mac.setPinned({notesId});
        notes = mac.launch(notesId, {.opensWindow = true});
        mail = mac.launch(mailId, {.opensWindow = true});
        mac.scheduler.runUntilIdle();
    }

    /// Returns the seconds that the main thread was blocked.
    double click(LaunchedApp& app, const char* id) {
        const double before = mac.scheduler.uptime();
        EXPECT_EQ(app.answer({"click", id}).code, ExitCode::succeeded);
        return mac.scheduler.uptime() - before;
    }
    static bool isInAGroup(LaunchedApp& app, const std::string& id) {
        for (const auto& group : *app.controller.store().windowAppGroups())
            for (const auto& item : group.items)
                if (item.id == id) return true;
        return false;
    }

    sim::SimMac mac{"1440x900 spaces=2"};
    ProcessId notes = 0;
    ProcessId mail = 0;
};

/// The program's life on a Mac that lacks functions, from its start to its quit.
void liveThrough(sim::SimMac& mac) {
    const auto dockBefore = mac.world().dock;
    mac.install(notesId, "Notes");
    const auto window = mac.openWindow(mac.launch(notesId));
    mac.install(mailId, "Mail");
    mac.setPinned({mailId});
    {
        LaunchedApp app(mac);
        mac.scheduler.runFor(5);
        EXPECT_THAT(app.takeCalls(), Contains("in 1"));
        EXPECT_EQ(app.answer({"click", mailId}).code, ExitCode::succeeded);
        mac.scheduler.runFor(5);
        EXPECT_EQ(mac.frontmost(), mac.pidOf(mailId));
        EXPECT_EQ(app.answer({"click", notesId}).code, ExitCode::succeeded);
        mac.scheduler.runFor(5);
        EXPECT_EQ(mac.frontmost(), mac.pidOf(notesId));
        mac.enterFullScreen(window);
        mac.scheduler.runFor(5);
        EXPECT_THAT(app.takeCalls(), Contains("out 1")) << "the window covers the screen";
        mac.leaveFullScreen(window);
        mac.scheduler.runFor(5);
        EXPECT_EQ(app.answer({"state"}).code, ExitCode::succeeded);
        app.controller.useSystemDock();
        mac.scheduler.runFor(5);
        EXPECT_EQ(mac.statusBar.items().size(), 1U);
        app.controller.useVantrel();
        mac.scheduler.runFor(5);
        app.delegate.willTerminate();
    }
    EXPECT_FLOAT_EQ(mac.world().dock.tileSize, dockBefore.tileSize);
    EXPECT_EQ(mac.world().dock.autoHide, dockBefore.autoHide);
    EXPECT_EQ(mac.world().dock.place, dockBefore.place);
    EXPECT_EQ(mac.world().dock.magnification, dockBefore.magnification);
}

TEST(MissingFunctions, TheProgramLivesWithoutAnyOneOfThem) {
    for (const auto name : sim::privateFunctions) {
        SCOPED_TRACE(name);
        sim::SimMac mac;
        ASSERT_TRUE(mac.removeFunction(name));
        mac.setDock({.tileSize = 0.4F, .magnification = true});
        liveThrough(mac);
    }
}

TEST(MissingFunctions, TheProgramLivesWithoutAllOfThem) {
    sim::SimMac mac;
    mac.removeAllFunctions();
    const auto platform = mac.platform();
    EXPECT_EQ(DockProfile::current(platform.coreDock), std::nullopt);
    EXPECT_EQ(DockBand::whyNoBand(platform.coreDock),
              "The Dock holds no space at the bottom of any screen.");
    EXPECT_EQ(whyNoResize(platform.coreDock),
              "Larkspan cannot resize the Dock on this Mac, so the height stays as it is.");
    liveThrough(mac);
    EXPECT_EQ(mac.coreDock.setCalls(), 0);
}

TEST(MissingFunctions, WithoutTheIconSizeTheRestOfTheDockIsStillMade) {
    sim::SimMac mac;
    mac.removeFunction("CoreDockSetTileSize");
    mac.setDock({.tileSize = 0.4F, .autoHide = true});
    const LaunchedApp app(mac);
    mac.scheduler.runFor(5);
    EXPECT_FALSE(mac.world().dock.autoHide);
    EXPECT_FLOAT_EQ(mac.world().dock.tileSize, 0.4F);
    EXPECT_EQ(app.controller.settings().syncedTileSize(), std::nullopt);
}

TEST_F(Faults, AHungAppHoldsUpNoClickOnAnother) {
    LaunchedApp app(mac);
    mac.scheduler.runFor(2);
    mac.hang(mail);
    EXPECT_LT(click(app, notesId), 0.1);
    EXPECT_EQ(mac.frontmost(), notes);
}

TEST_F(Faults, AClickOnAHungAppCostsOneTimeoutAndStillBringsItForward) {
    LaunchedApp app(mac);
    mac.scheduler.runFor(2);
    mac.hang(notes);
    EXPECT_LE(click(app, notesId), 0.5);
    EXPECT_EQ(mac.frontmost(), notes);
    mac.scheduler.runFor(2);
    EXPECT_LE(click(app, notesId), 0.5) << "in front it is not hidden: its windows are unknown";
    EXPECT_FALSE(mac.world().app(notes)->hidden);
}

TEST_F(Faults, AHungAppHoldsUpNoReadOfTheWindows) {
    LaunchedApp app(mac);
    mac.hang(notes);
    mac.hang(mail);
    mac.closeWindow(mac.world().windows.front().id);
    const double before = mac.scheduler.uptime();
    mac.scheduler.runFor(1);
    EXPECT_DOUBLE_EQ(mac.scheduler.uptime() - before, 1);
    EXPECT_FALSE(isInAGroup(app, mailId));
    EXPECT_TRUE(isInAGroup(app, notesId));
}

TEST_F(Faults, AnAppMayDieAtAnyCallOfAClickOnIt) {
    for (int calls = 0; calls < 16; ++calls) {
        SCOPED_TRACE(calls);
        LaunchedApp app(mac);
        mac.scheduler.runFor(2);
        mac.dieDuringRead(mac.pidOf(mailId), calls);
        click(app, mailId);
        mac.scheduler.runFor(2);
        if (!mac.pidOf(mailId)) {
            EXPECT_FALSE(isInAGroup(app, mailId));
        }
        mac.kill(mac.pidOf(mailId));
        mac.launch(mailId, {.opensWindow = true});
        mac.scheduler.runFor(2);
        EXPECT_TRUE(isInAGroup(app, mailId));
    }
}

TEST_F(Faults, AnAppThatLiesAboutItsFramesIsStillClicked) {
    LaunchedApp app(mac);
    mac.scheduler.runFor(2);
    mac.lieAboutFrames(mail, {40, 40});
    click(app, mailId);
    EXPECT_TRUE(mac.world().app(mail)->hidden);
}

TEST_F(Faults, ThreeThousandWindowsAreOneTileThatHidesAndShows) {
    mac.openWindows(mail, 3000);
    LaunchedApp app(mac);
    mac.scheduler.runFor(2);
    std::size_t tiles = 0;
    for (const auto& group : *app.controller.store().windowAppGroups())
        for (const auto& item : group.items)
            tiles += item.id == mailId ? 1 : 0;
    EXPECT_EQ(tiles, 1U);
    click(app, mailId);
    mac.scheduler.runFor(2);
    EXPECT_TRUE(mac.world().app(mail)->hidden);
    click(app, mailId);
    mac.scheduler.runFor(2);
    EXPECT_FALSE(mac.world().app(mail)->hidden);
}

TEST_F(Faults, AWindowWithoutNumberOrTitleCountsForItsApp) {
    const auto film = mac.launch("com.example.film");
    mac.openWindow(film, {.title = "Secret", .hasNumber = false, .hasName = false});
    LaunchedApp app(mac);
    mac.scheduler.runFor(2);
    EXPECT_TRUE(isInAGroup(app, "com.example.film"));
    click(app, notesId);
    mac.scheduler.runFor(2);
    click(app, "com.example.film");
    EXPECT_EQ(mac.frontmost(), film);
}

TEST_F(Faults, ProcessesWhoseWindowsOutliveThemAreReportedUntilTheirWindowsGo) {
    for (const bool announcesChanges : {false, true}) {
        mac.setAnnouncesChanges(announcesChanges);
        const auto ghost = mac.launch("com.example.ghost");
        const auto left = mac.openWindow(ghost);
        mac.scheduler.runUntilIdle();
        LaunchedApp app(mac);
        const auto lost = [&app] {
            return json::parse(app.answer({"state"}).text)["lostProcesses"];
        };
        mac.kill(notes);
        mac.world().app(ghost)->leavesWindows = true;
        const double death = mac.scheduler.wallClock();
        mac.kill(ghost);
        mac.scheduler.runFor(10);
        const auto report = lost();
        ASSERT_EQ(report.size(), 1U) << report << " with announced changes: " << announcesChanges;
        EXPECT_EQ(report[0]["pid"], ghost);
        EXPECT_NEAR(report[0]["since"].get<double>(), death, 1);
        EXPECT_FALSE(isInAGroup(app, "com.example.ghost"));
        mac.closeWindow(left);
        mac.scheduler.runFor(3);
        EXPECT_EQ(lost(), json::array());
    }
}

TEST_F(Faults, TrustThatIsRevokedWhileRunningTurnsClicksIntoPlainOnes) {
    LaunchedApp app(mac);
    mac.scheduler.runFor(2);
    mac.refuseAccessibility();
    click(app, notesId);
    EXPECT_EQ(mac.frontmost(), notes) << "brought forward without a look at its windows";
    mac.scheduler.runFor(2);
    click(app, notesId);
    EXPECT_TRUE(mac.world().app(notes)->hidden) << "hidden without a look at its windows";
    EXPECT_TRUE(isInAGroup(app, mailId)) << "the window list needs no trust";
    mac.scheduler.runFor(2);
    mac.refuseAccessibility(false);
    click(app, notesId);
    EXPECT_FALSE(mac.world().app(notes)->hidden);
}

TEST_F(Faults, TheScreensGoAndComeBack) {
    LaunchedApp app(mac);
    mac.scheduler.runFor(2);
    app.takeCalls();
    mac.unplugAll();
    mac.scheduler.runFor(5);
    EXPECT_THAT(mac.platform().screens.screens(), testing::IsEmpty());
    click(app, notesId);
    app.takeCalls();
    mac.addDisplay("1440x900");
    mac.scheduler.runFor(5);
    const auto* bars = app.controller.bars();
    ASSERT_EQ(bars->bars().size(), 1U);
    EXPECT_EQ(bars->bars().front().screen.display, mac.displayAt(0));
    EXPECT_TRUE(isInAGroup(app, notesId));
    EXPECT_TRUE(isInAGroup(app, mailId));
    mac.addDisplay("1920x1080");
    mac.scheduler.runFor(5);
    EXPECT_EQ(bars->bars().size(), 1U) << "the Dock holds a strip on one screen only";
}

TEST_F(Faults, AMirroringDisplayGivesItsWindowsToTheOtherAndTakesNoBar) {
    const auto second = mac.addDisplay("1440x900");
    mac.openWindow(mac.launch("com.example.film"), {.display = second});
    LaunchedApp app(mac);
    mac.scheduler.runFor(2);
    mac.mirror(second);
    mac.scheduler.runFor(2);
    for (const auto& group : *app.controller.store().windowAppGroups())
        EXPECT_EQ(group.slot.display, mac.displayAt(0));
    mac.endMirroring();
    mac.scheduler.runFor(2);
    EXPECT_EQ(mac.displayAt(1), second);
    EXPECT_EQ(app.controller.bars()->bars().size(), 1U);
}

TEST_F(Faults, ScreensThatChangeBetweenTwoReadsAreSeenInTheEnd) {
    LaunchedApp app(mac);
    mac.scheduler.runFor(2);
    mac.changeDisplaysAfterRead("1920x1080, 1280x720");
    mac.openWindow(notes);
    mac.scheduler.runFor(5);
    ASSERT_EQ(app.controller.bars()->bars().size(), 1U);
    EXPECT_EQ(app.controller.bars()->bars().front().screen.frame, (Rect{0, 0, 1920, 1080}));
    for (const auto& group : *app.controller.store().windowAppGroups())
        EXPECT_EQ(group.slot.display, mac.displayAt(0));
}

TEST_F(Faults, DoubledAndLateNewsLeadToTheSameModel) {
    LaunchedApp app(mac);
    mac.doubleEvents();
    mac.delayEvents(3);
    mac.kill(mail);
    const auto film = mac.launch("com.example.film");
    mac.openWindow(film);
    mac.scheduler.runFor(10);
    EXPECT_FALSE(isInAGroup(app, mailId));
    EXPECT_TRUE(isInAGroup(app, "com.example.film"));
    EXPECT_EQ(app.controller.store().frontmostPID().get(), film);
}

TEST_F(Faults, AGrantThatTheSystemFreezesIsSeenAtTheNextStart) {
    mac.refuseScreenRecording();
    mac.freezeScreenRecording();
    {
        LaunchedApp app(mac);
        auto& permissions = app.controller.permissions();
        permissions.grantScreenRecording();
        mac.refuseScreenRecording(false);
        mac.scheduler.runFor(10);
        EXPECT_FALSE(*permissions.hasScreenRecording);
        EXPECT_TRUE(*permissions.isShown);
        app.delegate.willTerminate();
    }
    mac.programEnded();
    const LaunchedApp app(mac);
    EXPECT_FALSE(*app.controller.permissions().isShown);
}

TEST_F(Faults, PermissionsThatAreRevokedWhileTheirWindowShowsAreMarkedMissing) {
    mac.refuseScreenRecording();
    LaunchedApp app(mac);
    auto& permissions = app.controller.permissions();
    mac.scheduler.runFor(1);
    EXPECT_TRUE(*permissions.hasAccessibility);
    mac.refuseAccessibility();
    mac.scheduler.runFor(1);
    EXPECT_FALSE(*permissions.hasAccessibility);
    mac.refuseAccessibility(false);
    mac.refuseScreenRecording(false);
    mac.scheduler.runFor(2);
    EXPECT_TRUE(*permissions.hasAccessibility);
    EXPECT_TRUE(*permissions.hasScreenRecording);
}

TEST_F(Faults, EachPermissionIsAskedForInItsOwnWay) {
    mac.refuseAccessibility();
    mac.refuseScreenRecording();
    LaunchedApp app(mac);
    auto& permissions = app.controller.permissions();
    const std::string pane = "x-apple.systempreferences:com.apple.preference.security?";
    permissions.grantAccessibility();
    EXPECT_EQ(mac.accessibility.trustRequests(), 1);
    EXPECT_THAT(mac.world().opened, ElementsAre(pane + "Privacy_Accessibility"));
    permissions.grantScreenRecording();
    EXPECT_EQ(mac.screenCapture.requests(), 1);
    EXPECT_EQ(mac.world().opened.back(), pane + "Privacy_ScreenCapture");
    mac.world().opened.clear();
    mac.refuseScreenRecording(false);
    permissions.grantScreenRecording();
    EXPECT_THAT(mac.world().opened, testing::IsEmpty()) << "the system's own prompt was enough";
}

} // namespace
} // namespace larkspan
