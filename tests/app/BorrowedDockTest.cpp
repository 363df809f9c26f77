#include "app/LaunchedApp.h"
#include "dock/DockProfile.h"
#include "dock/PinnedApps.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace larkspan {
namespace {

using testing::Contains;

constexpr const char* filmApp = "com.example.film";

struct Mac : sim::SimMac {
    Mac() {
        install(filmApp, "Film");
        install("com.example.notes", "Notes");
        setPinned({"com.example.notes"});
        setDock(usersDock);
        scheduler.runUntilIdle();
        defaults.synchronize();
    }
    DockProfile dock() const { return *DockProfile::current(coreDock); }
};

const DockProfile& usersOwn() {
    static const DockProfile profile = Mac().dock();
    return profile;
}

/// What the user does before the kill.
struct Story {
    const char* name;
    void (*play)(Mac& mac);
};

void runAndQuit(Mac& mac) {
    LaunchedApp app(mac);
    mac.scheduler.runFor(3);
    app.delegate.willTerminate();
}

constexpr Story stories[] = {
    {"start and quit", runAndQuit},
    {"quit at once",
     [](Mac& mac) {
         LaunchedApp app(mac);
         app.delegate.willTerminate();
     }},
    {"to the Dock and back",
     [](Mac& mac) {
         LaunchedApp app(mac);
         mac.scheduler.runFor(1);
         app.controller.useSystemDock();
         mac.scheduler.runFor(1);
         app.controller.useVantrel();
         mac.scheduler.runFor(1);
         app.controller.setBarHeight(30);
         app.controller.useSystemDock();
         app.delegate.willTerminate();
     }},
    {"keep an app and quit",
     [](Mac& mac) {
         LaunchedApp app(mac);
         mac.scheduler.runFor(1);
         app.answer({"pin", filmApp});
         mac.scheduler.runFor(0.1);
         app.delegate.willTerminate();
     }},
    {"begin with the Dock",
     [](Mac& mac) {
         mac.defaults.set("mode", "systemDock");
         LaunchedApp app(mac);
         app.controller.useVantrel();
         mac.scheduler.runFor(1);
         app.delegate.willTerminate();
     }},
};

/// The user's Dock is as the user had it, or what it was is stored for certain.
void expectNothingLost(const Mac& mac) {
    const auto saved = DockProfile::saved(mac.defaults);
    if (saved)
        EXPECT_EQ(*saved, usersOwn());
    else
        EXPECT_EQ(mac.dock(), usersOwn());
}

void expectPutBack(const Mac& mac) {
    EXPECT_EQ(mac.dock(), usersOwn());
    EXPECT_EQ(DockProfile::saved(mac.defaults), std::nullopt);
}

/// Returns whether the program was killed before the end.
bool playUntilKilled(Mac& mac, void (*play)(Mac&), int action, std::size_t survivors) {
    mac.killPoint().dieBefore(action);
    play(mac);
    const bool isKilled = mac.killPoint().isDead();
    mac.programKilled(survivors);
    // A Dock that was told to restart does so, whoever lives.
    mac.scheduler.runFor(1);
    return isKilled;
}

/// None, some, and all of what was not stored for certain reaches the disk.
constexpr std::size_t survivorCounts[] = {0, 1, 2, 100};

TEST(BorrowedDock, AKillBeforeAnyStepLosesNothingAndTheNextQuitPutsTheDockBack) {
    for (const auto& [name, play] : stories) {
        for (const auto survivors : survivorCounts) {
            int deed = 0;
            for (bool isKilled = true; isKilled; ++deed) {
                SCOPED_TRACE(fmt::format("{}, killed before deed {}, {} settings survive", name,
                                         deed, survivors));
                Mac mac;
                isKilled = playUntilKilled(mac, play, deed, survivors);
                expectNothingLost(mac);
                runAndQuit(mac);
                expectPutBack(mac);
            }
            EXPECT_GT(deed, 5) << name << " does something that outlives it";
        }
    }
}

TEST(BorrowedDock, ASecondKillWhileTheFirstIsMadeGoodLosesNothingEither) {
    for (int first = 0; first < 100; ++first) {
        bool isFirstKilled = true;
        bool isSecondKilled = true;
        for (int second = 0; isFirstKilled && isSecondKilled; ++second) {
            SCOPED_TRACE(fmt::format("killed before deed {}, then before deed {}", first, second));
            Mac mac;
            isFirstKilled = playUntilKilled(mac, runAndQuit, first, 0);
            isSecondKilled = playUntilKilled(mac, runAndQuit, second, 1);
            expectNothingLost(mac);
            runAndQuit(mac);
            expectPutBack(mac);
        }
        if (!isFirstKilled) return;
    }
    FAIL() << "the program never came to its end";
}

TEST(BorrowedDock, AKillAroundTheWriteOfThePinnedListLeavesAWholeList) {
    bool isKilled = true;
    for (int deed = 0; isKilled; ++deed) {
        Mac mac;
        isKilled = playUntilKilled(mac, stories[3].play, deed, 0);
        auto platform = mac.platform();
        const auto list = pinnedAppIdentifiers(platform.dockPreferences);
        EXPECT_THAT(list, Contains("com.example.notes")) << "killed before deed " << deed;
        if (!isKilled) {
            EXPECT_THAT(list, Contains(filmApp));
        }
        // The Dock shows a list that was written before the kill once it restarts by itself.
        mac.restartDock();
        mac.scheduler.runFor(1);
        EXPECT_EQ(mac.world().pinned, list);
    }
}

TEST(BorrowedDock, IsNotTouchedWhenItsSettingsCannotBeStored) {
    Mac mac;
    mac.defaults.diskIsFull = true;
    {
        LaunchedApp app(mac);
        mac.scheduler.runFor(10);
        EXPECT_EQ(mac.dock(), usersOwn());
        app.controller.setBarHeight(30);
        mac.scheduler.runFor(10);
        EXPECT_EQ(mac.dock(), usersOwn());
        EXPECT_EQ(DockProfile::saved(mac.defaults), std::nullopt);
        mac.defaults.diskIsFull = false;
        app.controller.useVantrel();
        EXPECT_EQ(DockProfile::saved(mac.defaults), usersOwn());
        EXPECT_NE(mac.dock(), usersOwn());
        app.delegate.willTerminate();
    }
    expectPutBack(mac);
}

/// What happens to the Dock after the start, within ten seconds.
struct Trouble {
    const char* name;
    void (*happen)(Mac& mac);
    /// Whether the Dock still wants to hold a strip, so that the bars wait for it to come back.
    bool keepsBars;
};

constexpr Trouble troubles[] = {
    {"restarts while it is fitted",
     [](Mac& mac) {
         mac.scheduler.runFor(0.3);
         mac.restartDock(1.5);
     },
     true},
    {"restarts just before the quit",
     [](Mac& mac) {
         mac.scheduler.runFor(9.9);
         mac.restartDock(2);
     },
     true},
    {"goes and does not come back",
     [](Mac& mac) {
         mac.scheduler.runFor(1);
         mac.removeDock();
     },
     true},
    {"is changed by someone else while it is fitted",
     [](Mac& mac) {
         mac.scheduler.runFor(1);
         mac.setDock({.tileSize = 1, .autoHide = true, .place = {4, 3}});
     },
     false},
    {"grows under the fitting",
     [](Mac& mac) {
         mac.world().stripSurplus = 30;
         mac.setDock(mac.world().dock);
     },
     true},
};

TEST(BorrowedDock, IsPutBackWhateverTheDockDidMeanwhile) {
    for (const auto& [name, happen, keepsBars] : troubles) {
        SCOPED_TRACE(name);
        Mac mac;
        {
            LaunchedApp app(mac);
            const double before = mac.scheduler.uptime();
            happen(mac);
            mac.scheduler.runFor(10 - (mac.scheduler.uptime() - before));
            EXPECT_TRUE(app.controller.settings().syncedTileSize()) << "the fitting has ended";
            const auto calls = app.takeCalls();
            EXPECT_EQ(std::ranges::count(calls, "close 1"), keepsBars ? 0 : 1);
            app.delegate.willTerminate();
        }
        mac.scheduler.runFor(5);
        expectPutBack(mac);
    }
}

TEST(BorrowedDock, ThatRefusesSizesIsAskedOnlySoOften) {
    Mac mac;
    mac.refuseDockSizes();
    LaunchedApp app(mac);
    mac.scheduler.runFor(10);
    const int calls = mac.coreDock.setCalls();
    mac.scheduler.runFor(60);
    EXPECT_EQ(mac.coreDock.setCalls(), calls);
    EXPECT_TRUE(app.controller.settings().syncedTileSize());
    EXPECT_FALSE(mac.world().dock.autoHide) << "what it does not refuse it takes";
    app.delegate.willTerminate();
    expectPutBack(mac);
}

} // namespace
} // namespace larkspan
