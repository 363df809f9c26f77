#pragma once

#include "platform/ApplicationControl.h"
#include "platform/contract/DesktopWorld.h"

#include <set>

namespace larkspan::contract {

/// What every workspace must do, and the control of applications whose effects show in it.
class WorkspaceContract : public DesktopContract {
  protected:
    using Kind = WorkspaceEvent::Kind;

    /// Whether the app was told of in that way.
    bool wasTold(Kind kind, const std::string& app) {
        return std::any_of(told_.begin(), told_.end(), [&](const WorkspaceEvent& event) {
            return event.kind == kind && event.application &&
                   event.application->bundleIdentifier == world_->identifier(app);
        });
    }
    bool wasTold(Kind kind) const {
        return std::any_of(told_.begin(), told_.end(), [&](const WorkspaceEvent& event) {
            return event.kind == kind && !event.application;
        });
    }

    Workspace& workspace_ = platform_.workspace;
    ApplicationControl& control_ = platform_.applications;
    std::vector<WorkspaceEvent> told_;
    Handle subscription_ =
        workspace_.subscribe([this](const WorkspaceEvent& event) { told_.push_back(event); });
};

TEST_P(WorkspaceContract, AppsAreListedInTheOrderOfTheirLaunch) {
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

TEST_P(WorkspaceContract, AnInstalledAppHasAPlaceANameAndAPicture) {
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

TEST_P(WorkspaceContract, OpeningLaunchesAnAppOnceAndForcingEndsIt) {
    const auto url = *workspace_.urlForApplication(world_->identifier("writer"));
    ASSERT_TRUE(control_.open(url));
    ASSERT_TRUE(runUntil([&] { return running("writer").has_value(); }));
    EXPECT_TRUE(runUntil([&] { return wasTold(Kind::runningApplicationsDidChange); }));
    EXPECT_FALSE(running("writer")->isFinishedLaunching);
    EXPECT_FALSE(wasTold(Kind::didLaunchApplication, "writer"));
    const auto pid = running("writer")->pid;
    world_->finishLaunching("writer");
    ASSERT_TRUE(runUntil([&] { return wasTold(Kind::didLaunchApplication, "writer"); }));
    EXPECT_TRUE(running("writer")->isFinishedLaunching);
    EXPECT_EQ(running("writer")->pid, pid) << "one process from its launch on";

    world_->openWindow("painter");
    ASSERT_TRUE(runUntil([&] { return isFrontmost("painter"); }));
    ASSERT_TRUE(control_.open(url));
    EXPECT_TRUE(runUntil([&] { return isFrontmost("writer"); }));
    EXPECT_EQ(running("writer")->pid, pid) << "an app that runs is brought forward";

    ASSERT_TRUE(control_.forceTerminate(pid));
    EXPECT_TRUE(runUntil([&] { return !running("writer"); }));
}

TEST_P(WorkspaceContract, FilesAreOpenedWithTheAppThatIsNamed) {
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
    EXPECT_EQ(running("writer")->pid, pid) << "the first goes on";
}

TEST_P(WorkspaceContract, ActivatingBringsExactlyOneAppToTheFront) {
    const auto written = world_->openWindow("writer");
    world_->openWindow("painter");
    ASSERT_TRUE(runUntil([&] { return isFrontmost("painter"); }));
    told_.clear();
    ASSERT_TRUE(control_.activate(owner(written)));
    ASSERT_TRUE(runUntil([&] { return wasTold(Kind::didActivateApplication, "writer"); }));
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
    ASSERT_TRUE(runUntil([&] { return wasTold(Kind::didHideApplication, "writer"); }));
    EXPECT_TRUE(running("writer")->isHidden);
    EXPECT_FALSE(isOnScreen(first) || isOnScreen(second));
    EXPECT_TRUE(isOnScreen(other));

    ASSERT_TRUE(control_.unhide(pid));
    ASSERT_TRUE(runUntil([&] { return isOnScreen(first) && isOnScreen(second); }));
    EXPECT_TRUE(runUntil([&] { return wasTold(Kind::didUnhideApplication, "writer"); }));
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

TEST_P(WorkspaceContract, AnAppThatQuitsIsToldAsEndedAndCanBeAskedNothingMore) {
    const auto window = world_->openWindow("writer");
    const auto pid = owner(window);
    EXPECT_TRUE(workspace_.hasProcess(pid));
    ASSERT_TRUE(control_.terminate(pid));
    ASSERT_TRUE(runUntil([&] { return wasTold(Kind::didTerminateApplication, "writer"); }));
    EXPECT_FALSE(running("writer"));
    EXPECT_FALSE(workspace_.hasProcess(pid));
    EXPECT_FALSE(entry(window));
    EXPECT_TRUE(runUntil([&] { return wasTold(Kind::runningApplicationsDidChange); }));
    const auto ended = std::find_if(told_.begin(), told_.end(), [](const auto& event) {
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

TEST_P(WorkspaceContract, ShowingAnotherSpaceIsTold) {
    world_->openWindow("writer");
    told_.clear();
    world_->showSpace(1);
    EXPECT_TRUE(runUntil([&] { return wasTold(Kind::activeSpaceDidChange); }));
    told_.clear();
    world_->showSpace(0);
    EXPECT_TRUE(runUntil([&] { return wasTold(Kind::activeSpaceDidChange); }));
}

} // namespace larkspan::contract
