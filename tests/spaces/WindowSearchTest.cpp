// The windows that Accessibility does not list: those of other Spaces, and those that are gone.

#include "adapters/sim/SimMac.h"
#include "spaces/WatchedAccessibility.h"
#include "spaces/WindowPresence.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Key;
using testing::UnorderedElementsAre;
using WindowPresence::closedChecks;
using WindowPresence::Listed;
using WindowPresence::WindowSearch;

/// An app with a window in view, one on another Space, and there also something that is not a
/// window to the user.
class OtherSpaces : public testing::Test {
  protected:
    OtherSpaces() {
        elsewhere = mac.spaceAt(mac.displayAt(0), 1);
        notes = mac.launch("com.example.notes");
        shown = mac.openWindow(notes, {.title = "Shown"});
        palette = mac.openWindow(
            notes, {.title = "Palette", .space = elsewhere, .subrole = "AXFloatingWindow"});
        away = mac.openWindow(notes, {.title = "Away", .space = elsewhere});
        mac.openWindow(mac.launch("com.example.mail"), {.title = "Letter", .space = elsewhere});
    }

    WindowSearch search(const std::set<WindowId>& sought = {}) {
        return WindowPresence::windowsOnOtherSpaces(watched, notes, mac.scheduler, sought);
    }
    static std::vector<WindowId> numbers(const WindowSearch& search) {
        std::vector<WindowId> numbers;
        for (const auto& window : search.windows)
            numbers.push_back(window.id);
        return numbers;
    }
    ClosedChecks check(ClosedChecks kept = {}) {
        const auto list =
            *WindowPresence::listWindows(mac.platform().windowServer, Listed::everywhere);
        return closedChecks(watched, list, {notes}, std::move(kept), mac.scheduler);
    }
    sim::App& app() { return *mac.world().app(notes); }

    sim::SimMac mac{"1440x900 spaces=2"};
    WatchedAccessibility watched{mac.accessibility};
    SpaceId elsewhere = 0;
    ProcessId notes = 0;
    WindowId shown = 0;
    WindowId palette = 0;
    WindowId away = 0;
};

TEST_F(OtherSpaces, FurtherWindowsFollowTheListedOnesAndSayWhereTheyAre) {
    const auto result = search();
    ASSERT_THAT(numbers(result), ElementsAre(shown, away));
    EXPECT_TRUE(result.isConclusive);
    EXPECT_FALSE(result.windows[0].isOnOtherSpace);
    const auto& found = result.windows[1];
    EXPECT_TRUE(found.isOnOtherSpace);
    EXPECT_EQ(found.pid, notes);
    EXPECT_EQ(found.title, "Away");
    EXPECT_EQ(found.frame, mac.world().window(away)->frame);
    EXPECT_EQ(mac.accessibility.window(found.element), away);
}

TEST_F(OtherSpaces, ASearchEndsWithTheLastWindowThatWasSought) {
    EXPECT_THAT(numbers(search({away})), ElementsAre(shown, away));
    EXPECT_LE(watched.tokens, 4) << "the app itself and its three windows";
    watched.tokens = 0;
    EXPECT_THAT(numbers(search({shown})), ElementsAre(shown));
    EXPECT_EQ(watched.tokens, 0) << "nothing is missing";
}

TEST_F(OtherSpaces, ASearchEndsAtItsDeadlineAndProvesNothingThen) {
    app().answerSeconds = 0.01;
    const double start = mac.scheduler.uptime();
    const auto result = search({999'999});
    // One read of a window under way may end after it, and the listed windows are read before.
    EXPECT_GT(mac.scheduler.uptime() - start, 0.25);
    EXPECT_LT(mac.scheduler.uptime() - start, 0.38);
    EXPECT_FALSE(result.isConclusive);
    EXPECT_THAT(numbers(result), ElementsAre(shown, away)) << "what it found by then";
}

struct SearchFault {
    const char* name;
    void (*happen)(sim::SimMac&, sim::App&);
    std::size_t found;
};

class SearchUnderFault : public OtherSpaces, public testing::WithParamInterface<SearchFault> {};

TEST_P(SearchUnderFault, FindsNothingFurtherAndProvesNothing) {
    GetParam().happen(mac, app());
    const double start = mac.scheduler.uptime();
    const auto result = search();
    EXPECT_EQ(result.windows.size(), GetParam().found);
    EXPECT_FALSE(result.isConclusive);
    EXPECT_LE(mac.scheduler.uptime() - start, mac.world().messagingTimeout)
        << "one time-out at most";
}

INSTANTIATE_TEST_SUITE_P(
    Table, SearchUnderFault,
    testing::Values(
        SearchFault{"NoTokens",
                    [](sim::SimMac& m, sim::App&) {
                        m.removeFunction("_AXUIElementCreateWithRemoteToken");
                    },
                    1},
        SearchFault{"NoPermission", [](sim::SimMac& m, sim::App&) { m.refuseAccessibility(); }, 0},
        SearchFault{"Hung", [](sim::SimMac&, sim::App& app) { app.hung = true; }, 0},
        SearchFault{"NoProcess", [](sim::SimMac& m, sim::App& app) { m.kill(app.pid); }, 0}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(OtherSpaces, AnAppThatHangsInTheMiddleOfASearchIsLeftAlone) {
    watched.onRead = [&](const std::string& name) { app().hung = name == "AXRole" || app().hung; };
    const auto result = search();
    EXPECT_THAT(numbers(result), ElementsAre(shown));
    EXPECT_FALSE(result.isConclusive);
    EXPECT_EQ(watched.tokens, 1);
}

TEST_F(OtherSpaces, APermissionThatGoesInTheMiddleProvesNothing) {
    watched.onRead = [&](const std::string& name) {
        if (name == "AXRole" && watched.tokens > 3) mac.refuseAccessibility();
    };
    EXPECT_FALSE(search().isConclusive);
}

TEST_F(OtherSpaces, ASearchThatMissesAListedWindowProvesNothing) {
    // Its element is numbered beyond what is looked through.
    for (int i = 0; i < 1000; ++i)
        mac.openWindow(notes, {.space = elsewhere, .subrole = ""});
    mac.openWindow(notes, {.title = "Late"});
    EXPECT_FALSE(search().isConclusive);
}

TEST_F(OtherSpaces, AHungAppIsAskedNothingMoreInTheMiddleOfItsWindows) {
    mac.openWindow(notes);
    watched.onRead = [&](const std::string& name) { app().hung = name == "AXTitle" || app().hung; };
    EXPECT_FALSE(WindowPresence::accessibilityWindows(watched, notes)) << "half a list is none";
    EXPECT_EQ(watched.reads, 3) << "AXWindows, AXSubrole, AXTitle";
}

TEST_F(OtherSpaces, ACheckHidesWhatAccessibilityDoesNotConfirm) {
    mac.openWindow(notes, {.title = "", .subrole = ""});
    mac.openWindow(notes, {.title = "Unnumbered", .subrole = "", .hasNumber = false});
    const auto checks = check();
    ASSERT_THAT(checks, ElementsAre(Key(notes))) << "only the app that was named";
    EXPECT_THAT(checks.at(notes).listed, UnorderedElementsAre(shown, palette, away))
        << "neither without a title nor without a number";
    EXPECT_THAT(checks.at(notes).hidden, UnorderedElementsAre(palette, away));
    EXPECT_EQ(checks.at(notes).time, mac.scheduler.uptime());
}

TEST_F(OtherSpaces, ACheckHoldsForThirtySecondsOrUntilTheListingChanges) {
    const auto first = check();
    mac.scheduler.runFor(29.9);
    watched.reads = 0;
    EXPECT_EQ(check(first), first);
    EXPECT_EQ(watched.reads, 0);

    mac.scheduler.runFor(0.1);
    EXPECT_EQ(check(first).at(notes).time, mac.scheduler.uptime());
    EXPECT_GT(watched.reads, 0);

    const auto opened = mac.openWindow(notes, {.title = "New"});
    EXPECT_THAT(check(first).at(notes).listed, Contains(opened));
}

TEST_F(OtherSpaces, AnAppThatDoesNotAnswerHidesNothingAndIsNotAskedAgainSoon) {
    mac.hang(notes);
    const auto checks = check();
    EXPECT_THAT(checks.at(notes).hidden, IsEmpty());
    watched.reads = 0;
    EXPECT_EQ(check(checks), checks);
    EXPECT_EQ(watched.reads, 0);
}

TEST_F(OtherSpaces, APermissionThatGoesDuringACheckHidesNothing) {
    watched.onRead = [&](const std::string& name) {
        if (name == "AXSubrole") mac.refuseAccessibility();
    };
    EXPECT_THAT(check().at(notes).hidden, IsEmpty());
}

TEST_F(OtherSpaces, WithoutPermissionOrAppsTheKeptChecksStand) {
    const ClosedChecks kept{{77, {.hidden = {1}, .listed = {1}, .time = 3}}};
    EXPECT_EQ(closedChecks(watched, {}, {}, kept, mac.scheduler), kept);
    mac.refuseAccessibility();
    EXPECT_EQ(check(kept), kept);
    EXPECT_EQ(watched.reads, 0);
}

} // namespace
} // namespace larkspan
