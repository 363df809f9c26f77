#include "app/AppController.h"

#include "app/LaunchedApp.h"
#include "dock/DockIconSize.h"
#include "dock/DockProfile.h"
#include "dock/PinnedApps.h"
#include "platform/LoginItem.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

DockProfile profileOf(sim::SimMac& mac) {
    return *DockProfile::current(mac.coreDock);
}

class AppControllerTest : public testing::Test {
  protected:
    AppControllerTest() {
        mac.setDock(usersDock);
        usersOwn = profileOf(mac);
    }

    bool hasStatusItem() const { return !mac.statusBar.items().empty(); }
    bool hasSavedProfile() const { return DockProfile::saved(mac.defaults).has_value(); }

    sim::SimMac mac{"1440x900"};
    DockProfile usersOwn;
};

TEST_F(AppControllerTest, TheFirstLaunchPutsTheBarOverAShrunkenDock) {
    LaunchedApp app(mac);
    EXPECT_EQ(mac.defaults.value("mode"), PropertyValue("vantrel"));
    EXPECT_EQ(DockProfile::saved(mac.defaults), usersOwn);
    EXPECT_EQ(profileOf(mac), (DockProfile{.tileSize = 0.25F / 112, .pinning = 1}));
    EXPECT_FALSE(hasStatusItem());
    EXPECT_FALSE(*app.controller.permissions().isShown);
    EXPECT_EQ(app.controller.barHeight(), 72);
    // The strip comes with the Dock's new position, which the screens report a little later.
    mac.scheduler.runFor(5);
    EXPECT_THAT(app.takeCalls(), ElementsAre("make 1", "place 1 at 0,0 1440x72", "in 1"));
    EXPECT_TRUE(app.controller.settings().syncedTileSize());
}

TEST_F(AppControllerTest, TheIconSizeFollowsTheStoredHeight) {
    const std::pair<double, float> cases[] = {{30, (10.25F - 16) / 112}, {90, 0.25F / 112}};
    for (const auto& [height, fraction] : cases) {
        sim::SimMac other;
        other.defaults.set("barHeight", height);
        const LaunchedApp app(other);
        EXPECT_FLOAT_EQ(other.world().dock.tileSize, fraction) << height;
    }
}

TEST_F(AppControllerTest, QuittingGivesTheDockBack) {
    LaunchedApp app(mac);
    mac.scheduler.runFor(5);
    app.delegate.willTerminate();
    EXPECT_EQ(profileOf(mac), usersOwn);
    EXPECT_FALSE(hasSavedProfile());
}

TEST_F(AppControllerTest, AKillAtAnyMomentLosesNothingOfTheUsersDock) {
    for (const double seconds : {0.0, 0.5, 1.0, 10.0}) {
        {
            const LaunchedApp killed(mac);
            mac.scheduler.runFor(seconds);
            mac.defaults.loseUnsynchronized();
        }
        LaunchedApp app(mac);
        mac.scheduler.runFor(1);
        app.delegate.willTerminate();
        EXPECT_EQ(profileOf(mac), usersOwn) << "killed after " << seconds << " s";
    }
}

TEST_F(AppControllerTest, InSystemDockModeTheDockIsLeftAlone) {
    mac.defaults.set("mode", "systemDock");
    mac.refuseScreenRecording();
    const int callsBefore = mac.coreDock.setCalls();
    LaunchedApp app(mac);
    mac.scheduler.runFor(5);
    EXPECT_EQ(app.panels, nullptr);
    EXPECT_TRUE(hasStatusItem());
    EXPECT_TRUE(*app.controller.permissions().isShown);
    EXPECT_EQ(app.controller.barHeight(), std::nullopt);
    app.delegate.willTerminate();
    EXPECT_EQ(mac.coreDock.setCalls(), callsBefore);
}

TEST_F(AppControllerTest, TheStatusItemLeadsBackToTheBar) {
    LaunchedApp app(mac);
    mac.scheduler.runFor(5);
    app.takeCalls();
    app.controller.useSystemDock();
    app.controller.useSystemDock();
    EXPECT_THAT(app.takeCalls(), ElementsAre("out 1"));
    EXPECT_EQ(profileOf(mac), usersOwn);
    EXPECT_FALSE(hasSavedProfile());
    ASSERT_THAT(mac.statusBar.items(), SizeIs(1));
    EXPECT_EQ(mac.statusBar.items().front().accessibilityDescription, "Larkspan");
    EXPECT_TRUE(mac.statusBar.choose("Use Larkspan"));
    mac.scheduler.runFor(5);
    EXPECT_THAT(app.takeCalls(), Contains("in 1"));
    EXPECT_FALSE(hasStatusItem());
    EXPECT_EQ(mac.defaults.value("mode"), PropertyValue("vantrel"));
}

TEST_F(AppControllerTest, TheStatusItemQuits) {
    mac.defaults.set("mode", "systemDock");
    const LaunchedApp app(mac);
    EXPECT_TRUE(mac.statusBar.choose("Quit Larkspan"));
    EXPECT_TRUE(mac.application.isTerminating);
}

TEST_F(AppControllerTest, AReopenBringsTheBarBackAndIsNeverHandled) {
    LaunchedApp app(mac);
    EXPECT_FALSE(app.delegate.shouldHandleReopen());
    EXPECT_EQ(app.controller.mode(), BarMode::vantrel);
    app.controller.useSystemDock();
    EXPECT_FALSE(app.delegate.shouldHandleReopen());
    EXPECT_EQ(app.controller.mode(), BarMode::vantrel);
}

TEST_F(AppControllerTest, SwitchingToTheDockEndsTheFitting) {
    LaunchedApp app(mac);
    app.controller.useSystemDock();
    mac.scheduler.runFor(30);
    EXPECT_EQ(profileOf(mac), usersOwn);
    EXPECT_EQ(app.controller.settings().syncedTileSize(), std::nullopt);
}

TEST_F(AppControllerTest, ADockThatCannotBeReadIsNotTouched) {
    mac.setDock({});
    mac.removeFunction("CoreDockIsMagnificationEnabled");
    const int callsBefore = mac.coreDock.setCalls();
    LaunchedApp app(mac);
    mac.scheduler.runFor(10);
    app.delegate.willTerminate();
    EXPECT_EQ(mac.coreDock.setCalls(), callsBefore);
    EXPECT_FALSE(hasSavedProfile());
    EXPECT_THAT(app.takeCalls(), Contains("in 1"));
}

TEST_F(AppControllerTest, AFullScreenWindowSendsTheBarAway) {
    LaunchedApp app(mac);
    mac.install("com.example.film", "Film");
    const auto window = mac.openWindow(mac.launch("com.example.film"));
    mac.scheduler.runFor(5);
    app.takeCalls();
    mac.enterFullScreen(window);
    mac.scheduler.runFor(2);
    EXPECT_THAT(app.takeCalls(), ElementsAre("out 1"));
    mac.leaveFullScreen(window);
    mac.scheduler.runFor(2);
    EXPECT_THAT(app.takeCalls(), ElementsAre("in 1"));
}

TEST_F(AppControllerTest, QuittingWritesAPinThatWaits) {
    mac.install("com.example.film", "Film");
    LaunchedApp app(mac);
    mac.scheduler.runFor(5);
    EXPECT_EQ(app.answer({"pin", "com.example.film"}).code, ExitCode::succeeded);
    mac.scheduler.runFor(0.2);
    app.delegate.willTerminate();
    auto platform = mac.platform();
    EXPECT_THAT(pinnedAppIdentifiers(platform.dockPreferences), Contains("com.example.film"));
}

TEST_F(AppControllerTest, ANewHeightMovesTheBarsAndFitsTheDockAnew) {
    LaunchedApp app(mac);
    mac.scheduler.runFor(5);
    app.takeCalls();
    app.controller.setBarHeight(30);
    EXPECT_THAT(app.takeCalls(), ElementsAre("place 1 at 0,0 1440x30"));
    EXPECT_FLOAT_EQ(mac.world().dock.tileSize, tileFraction(10));
    app.controller.setBarHeight(std::nullopt);
    EXPECT_THAT(app.takeCalls(), ElementsAre("place 1 at 0,0 1440x72"));
}

TEST_F(AppControllerTest, AccessibilityCallsGiveUpAfterHalfASecond) {
    const LaunchedApp app(mac);
    mac.hang(mac.finder());
    const double before = mac.scheduler.uptime();
    const auto finder = mac.accessibility.createApplication(mac.finder());
    EXPECT_EQ(mac.accessibility.attribute(finder, "AXWindows").error, AXError::cannotComplete);
    EXPECT_DOUBLE_EQ(mac.scheduler.uptime() - before, 0.5);
}

TEST_F(AppControllerTest, TheLoginItemIsToggledOrItsSettingsShown) {
    LaunchedApp app(mac);
    app.controller.toggleLoginItem();
    EXPECT_EQ(mac.loginItem.current, LoginItem::Status::enabled);
    app.controller.toggleLoginItem();
    EXPECT_EQ(mac.loginItem.current, LoginItem::Status::notRegistered);
    mac.loginItem.current = LoginItem::Status::requiresApproval;
    mac.loginItem.refuses = true;
    app.controller.toggleLoginItem();
    EXPECT_EQ(mac.loginItem.settingsOpened, 1);
}

TEST_F(AppControllerTest, PermissionsAreReadAnewWhileTheirWindowIsShown) {
    mac.refuseAccessibility();
    mac.refuseScreenRecording();
    LaunchedApp app(mac);
    auto& permissions = app.controller.permissions();
    EXPECT_EQ(mac.application.activations, 1);
    mac.refuseAccessibility(false);
    mac.refuseScreenRecording(false);
    mac.scheduler.runFor(0.6);
    EXPECT_TRUE(*permissions.hasAccessibility);
    EXPECT_FALSE(*permissions.hasScreenRecording) << "read again only after more than a second";
    mac.scheduler.runFor(1);
    EXPECT_TRUE(*permissions.hasScreenRecording);
    permissions.close();
    mac.refuseAccessibility();
    mac.scheduler.runFor(5);
    EXPECT_TRUE(*permissions.hasAccessibility) << "nothing is read for a closed window";
}

} // namespace
} // namespace larkspan
