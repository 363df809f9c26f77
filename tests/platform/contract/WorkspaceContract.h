#pragma once

#include "platform/ApplicationControl.h"
#include "platform/contract/DesktopWorld.h"

#include <set>

namespace larkspan::contract {

/// What every workspace must do, and application control, whose effects are visible in it.
class WorkspaceContract : public DesktopContract {
  protected:
    using Kind = WorkspaceEvent::Kind;

    /// Whether that event was reported for the app.
    bool wasReported(Kind kind, const std::string& app) {
        return std::any_of(reported_.begin(), reported_.end(), [&](const WorkspaceEvent& event) {
            return event.kind == kind && event.application &&
                   event.application->bundleIdentifier == world_->identifier(app);
        });
    }
    bool wasReported(Kind kind) const {
        return std::any_of(reported_.begin(), reported_.end(), [&](const WorkspaceEvent& event) {
            return event.kind == kind && !event.application;
        });
    }

    Workspace& workspace_ = platform_.workspace;
    ApplicationControl& control_ = platform_.applications;
    std::vector<WorkspaceEvent> reported_;
    Handle subscription_ =
        workspace_.subscribe([this](const WorkspaceEvent& event) { reported_.push_back(event); });
};

TEST_P(WorkspaceContract, AppsAreListedInLaunchOrder) {
    const auto written = world_->openWindow("writer");
    world_->openWindow("painter");
    control_.activate(owner(written));
    ASSERT_TRUE(runUntil([&] { return isFrontmost("writer"); }));
    std::vector<std::string> identifiers;
    std::set<ProcessId> pids;
    for (const auto& app : workspace_.runningApplications()) {
        EXPECT_GT(app.pid, 0);
        EXPECT_TRUE(pids.insert(app.pid).second);
        EXPECT_FALSE(app.isTerminated);
        identifiers.push_back(app.bundleIdentifier.value_or(""));
    }
    const auto writer =
        std::find(identifiers.begin(), identifiers.end(), world_->identifier("writer"));
    EXPECT_NE(std::find(writer, identifiers.end(), world_->identifier("painter")),
              identifiers.end());
}

TEST_P(WorkspaceContract, AnInstalledAppHasAPathANameAndAnIcon) {
    EXPECT_EQ(workspace_.urlForApplication("org.example.nowhere"), std::nullopt);
    const auto url = workspace_.urlForApplication(world_->identifier("painter"));
    ASSERT_TRUE(url);
    EXPECT_EQ(workspace_.displayName(*url).substr(0, 7), "painter");
    world_->openWindow("painter");
    EXPECT_EQ(running("painter")->bundleURL, url);
    EXPECT_EQ(running("painter")->localizedName, "painter");
    const auto generic = workspace_.genericApplicationIcon();
    ASSERT_TRUE(generic);
    EXPECT_EQ(generic->identity(), workspace_.genericApplicationIcon()->identity());
    EXPECT_EQ(generic->bitmap(32).width, 32);
}

TEST_P(WorkspaceContract, OpeningLaunchesAnAppOnceAndForceQuitEndsIt) {
    const auto url = *workspace_.urlForApplication(world_->identifier("writer"));
    ASSERT_TRUE(control_.open(url));
    ASSERT_TRUE(runUntil([&] { return running("writer").has_value(); }));
    EXPECT_TRUE(runUntil([&] { return wasReported(Kind::runningApplicationsDidChange); }));
    EXPECT_FALSE(running("writer")->isFinishedLaunching);
    EXPECT_FALSE(wasReported(Kind::didLaunchApplication, "writer"));
    const auto pid = running("writer")->pid;
    world_->finishLaunching("writer");
    ASSERT_TRUE(runUntil([&] { return wasReported(Kind::didLaunchApplication, "writer"); }));
    EXPECT_TRUE(running("writer")->isFinishedLaunching);
    EXPECT_EQ(running("writer")->pid, pid) << "the same process since its launch";

    world_->openWindow("painter");
    ASSERT_TRUE(runUntil([&] { return isFrontmost("painter"); }));
    ASSERT_TRUE(control_.open(url));
    EXPECT_TRUE(runUntil([&] { return isFrontmost("writer"); }));
    EXPECT_EQ(running("writer")->pid, pid) << "a running app is brought forward";

    ASSERT_TRUE(control_.forceTerminate(pid));
    EXPECT_TRUE(runUntil([&] { return !running("writer"); }));
}

TEST_P(WorkspaceContract, FilesAreOpenedWithTheGivenApp) {
    const auto url = *workspace_.urlForApplication(world_->identifier("writer"));
    EXPECT_FALSE(control_.openWith({"/tmp/letter"}, "/nowhere/at.all"));
    ASSERT_TRUE(control_.openWith({"/tmp/letter"}, url));
    EXPECT_TRUE(runUntil([&] { return running("writer").has_value(); }));
    EXPECT_FALSE(running("painter"));
}

TEST_P(WorkspaceContract, AnotherInstanceIsOpenedBesideARunningOne) {
    const auto url = *workspace_.urlForApplication(world_->identifier("writer"));
    EXPECT_FALSE(control_.openNewInstance("/nowhere/at.all"));
    world_->openWindow("writer");
    const auto pid = running("writer")->pid;
    world_->openWindow("painter");
    ASSERT_TRUE(control_.openNewInstance(url));
    world_->finishLaunching("writer");
    EXPECT_TRUE(runUntil([&] { return isFrontmost("writer"); }));
    EXPECT_EQ(running("writer")->pid, pid) << "the first one is still running";
}

TEST_P(WorkspaceContract, ActivatingBringsExactlyOneAppToTheFront) {
    const auto written = world_->openWindow("writer");
    world_->openWindow("painter");
    ASSERT_TRUE(runUntil([&] { return isFrontmost("painter"); }));
    reported_.clear();
    ASSERT_TRUE(control_.activate(owner(written)));
    ASSERT_TRUE(runUntil([&] { return wasReported(Kind::didActivateApplication, "writer"); }));
    EXPECT_TRUE(isFrontmost("writer"));
    const auto apps = workspace_.runningApplications();
    EXPECT_EQ(std::count_if(apps.begin(), apps.end(), [](const auto& app) { return app.isActive; }),
              1);
}

TEST_P(WorkspaceContract, AHiddenAppLosesItsWindowsFromTheScreenAndGetsThemBack) {
    const auto first = world_->openWindow("writer");
    const auto second = world_->openWindow("writer");
    const auto other = world_->openWindow("painter");
    const auto pid = owner(first);
    ASSERT_TRUE(control_.hide(pid));
    ASSERT_TRUE(runUntil([&] { return wasReported(Kind::didHideApplication, "writer"); }));
    EXPECT_TRUE(running("writer")->isHidden);
    EXPECT_FALSE(isOnScreen(first) || isOnScreen(second));
    EXPECT_TRUE(isOnScreen(other));

    ASSERT_TRUE(control_.unhide(pid));
    ASSERT_TRUE(runUntil([&] { return isOnScreen(first) && isOnScreen(second); }));
    EXPECT_TRUE(runUntil([&] { return wasReported(Kind::didUnhideApplication, "writer"); }));
    EXPECT_FALSE(running("writer")->isHidden);
}

TEST_P(WorkspaceContract, ActivatingAHiddenAppShowsItAgain) {
    const auto window = world_->openWindow("writer");
    world_->openWindow("painter");
    ASSERT_TRUE(control_.hide(owner(window)));
    ASSERT_TRUE(runUntil([&] { return running("writer")->isHidden; }));
    ASSERT_TRUE(control_.activate(owner(window)));
    EXPECT_TRUE(runUntil([&] {
        return isOnScreen(window) && isFrontmost("writer") && !running("writer")->isHidden;
    }));
}

TEST_P(WorkspaceContract, AnAppThatQuitsIsReportedAndGetsNoMoreRequests) {
    const auto window = world_->openWindow("writer");
    const auto pid = owner(window);
    EXPECT_TRUE(workspace_.hasProcess(pid));
    ASSERT_TRUE(control_.terminate(pid));
    ASSERT_TRUE(runUntil([&] { return wasReported(Kind::didTerminateApplication, "writer"); }));
    EXPECT_FALSE(running("writer"));
    EXPECT_FALSE(workspace_.hasProcess(pid));
    EXPECT_FALSE(entry(window));
    EXPECT_TRUE(runUntil([&] { return wasReported(Kind::runningApplicationsDidChange); }));
    const auto ended = std::find_if(reported_.begin(), reported_.end(), [](const auto& event) {
        return event.kind == Kind::didTerminateApplication;
    });
    EXPECT_EQ(ended->application->pid, pid);
    EXPECT_TRUE(ended->application->isTerminated);

    EXPECT_FALSE(control_.activate(pid));
    EXPECT_FALSE(control_.hide(pid));
    EXPECT_FALSE(control_.unhide(pid));
    EXPECT_FALSE(control_.terminate(pid));
    EXPECT_FALSE(control_.forceTerminate(pid));
    EXPECT_FALSE(control_.sendSignal(pid, 15));
}

TEST_P(WorkspaceContract, ShowingAnotherSpaceIsAnnounced) {
    world_->openWindow("writer");
    reported_.clear();
    world_->showSpace(1);
    EXPECT_TRUE(runUntil([&] { return wasReported(Kind::activeSpaceDidChange); }));
    reported_.clear();
    world_->showSpace(0);
    EXPECT_TRUE(runUntil([&] { return wasReported(Kind::activeSpaceDidChange); }));
}

} // namespace larkspan::contract
