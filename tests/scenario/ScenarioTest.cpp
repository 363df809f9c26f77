#include "scenario/ScenarioRunner.h"

#include <filesystem>
#include <fmt/format.h>
#include <gmock/gmock.h>

namespace larkspan::sim {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(ScenarioTest, EveryScenarioOfTheDemoHolds) {
    int played = 0;
    for (const auto& file : std::filesystem::directory_iterator(LARKSPAN_DEMO_FOLDER)) {
        SCOPED_TRACE(file.path());
        const auto reading = loadScenario(file.path());
        ASSERT_TRUE(reading.scenario) << reading.complaint;
        Stage stage;
        ScenarioRunner runner(*reading.scenario, stage);
        runner.play();
        EXPECT_THAT(runner.failures(), IsEmpty());
        ++played;
    }
    EXPECT_GE(played, 12);
}

struct Refusal {
    std::string text;
    const char* reason;
};

void expectRefused(const std::vector<Refusal>& cases) {
    for (const auto& [text, reason] : cases) {
        const auto reading = parseScenario(text, "a.json");
        EXPECT_FALSE(reading.scenario) << text;
        EXPECT_THAT(reading.complaint, StartsWith("a.json: "));
        EXPECT_THAT(reading.complaint, HasSubstr(reason)) << text;
    }
}

TEST(ScenarioTest, RefusesAFileThatIsNoScenario) {
    expectRefused({
        {R"({"steps": [)", "a.json: "},
        {R"([])", "a.json: a scenario is an object"},
        {R"({})", R"(a.json: "steps" is missing)"},
        {R"({"steps": {}})", R"("steps" is not a list)"},
        {R"({"steps": [], "word": 1})", R"(a.json: "word" means nothing here)"},
        {R"({"title": 1, "steps": []})", R"("title" is not a text)"},
        {R"({"title": "a", "title": "b", "steps": []})", R"(a.json: "title" stands twice)"},
        {R"({"steps": [{"at": 0, "picture": "a", "at": 1}]})", R"(step 1: "at" stands twice)"},
    });
    EXPECT_THAT(loadScenario("no-such-file.json").complaint, HasSubstr("cannot be read"));
}

TEST(ScenarioTest, RefusesStepsThatMakeNoSenseWithTheirReason) {
    const std::pair<const char*, const char*> cases[] = {
        {R"(1)", "a step is an object"},
        {R"({"do": "launch", "app": "a"})", R"("at" is missing)"},
        {R"({"at": "1", "do": "launch", "app": "a"})", R"("at" is not a number)"},
        {R"({"at": -1, "do": "launch", "app": "a"})", R"("at" is not a number from 0 to 86400)"},
        {R"({"at": 86401, "do": "launch", "app": "a"})", R"("at" is not a number from 0)"},
        {R"({"at": 4.9, "picture": "b"})", "4.9 seconds is before the step above, at 5"},
        {R"({"at": 5})", "exactly one of"},
        {R"({"at": 5, "do": "hide", "picture": "a"})", "exactly one of"},
        {R"({"at": 5, "do": 5})", R"("do" is not a text)"},
        {R"({"at": 5, "do": "fly"})", R"(there is no action "fly")"},
        {R"({"at": 5, "do": "Launch", "app": "a"})", R"(there is no action "Launch")"},
        {R"({"at": 5, "do": "launch"})", R"("app" is missing)"},
        {R"({"at": 5, "do": "launch", "app": 1})", R"("app" is not a text)"},
        {R"({"at": 5, "do": "launch", "app": "a", "widow": true})", R"("widow" means nothing)"},
        {R"({"at": 5, "do": "launch", "app": "a", "seconds": -1})", R"("seconds" is not a number)"},
        {R"({"at": 5, "do": "launch", "app": "a", "window": 1})", "is not true or false"},
        {R"({"at": 5, "do": "launch", "app": "a", "note": 1})", R"("note" is not a text)"},
        {R"({"at": 5, "do": "moveWindow", "window": "a", "frame": [1, 2]})", "four numbers"},
        {R"({"at": 5, "do": "moveWindow", "window": "a", "frame": [1, 2, 3, "4"]})", "four"},
        {R"({"at": 5, "do": "moveWindow", "window": "a", "frame": [1, 2, 0, 4]})", "above 0"},
        {R"({"at": 5, "do": "switchSpace", "space": -1})", "a whole number from 0"},
        {R"({"at": 5, "do": "switchSpace", "space": 0.5})", "a whole number from 0"},
        {R"({"at": 5, "do": "setDock", "orientation": 1})", "a whole number from 2 to 4"},
        {R"({"at": 5, "do": "setDock", "tileSize": 64})", "a number from 0 to 1"},
        {R"({"at": 5, "do": "sleep", "seconds": -1})", R"("seconds" is not a number from 0)"},
        {R"({"at": 5, "do": "jumpClock", "seconds": 1e300})", R"("seconds" is not a number from)"},
        {R"({"at": 5, "do": "tell", "words": "quit"})", "a list of texts"},
        {R"({"at": 5, "expect": "mode", "equals": 1})", "begins with"},
        {R"({"at": 5, "expect": "/mode"})", "an expectation has exactly one of"},
        {R"({"at": 5, "expect": "/a", "count": 1, "ids": []})",
         "an expectation has exactly one of"},
        {R"({"at": 5, "expect": "/a", "equal": 1})", R"("equal" means nothing here)"},
        {R"({"at": 5, "expect": "/a", "count": -1})", "a whole number from 0"},
        {R"({"at": 5, "expect": "/a", "ids": [1]})", "a list of texts"},
        {R"({"at": 5, "picture": "../a"})", "a picture's name"},
        {R"({"at": 5, "picture": "a", "app": "b"})", R"("app" means nothing here)"},
    };
    std::vector<Refusal> refusals;
    for (const auto& [step, reason] : cases) {
        const std::string text = R"({"steps": [{"at": 5, "picture": "a"}, )";
        const auto reading = parseScenario(text + step + "]}", "a.json");
        EXPECT_THAT(reading.complaint, StartsWith("a.json: step 2: ")) << step;
        refusals.push_back({text + step + "]}", reason});
    }
    expectRefused(refusals);
    // No number, and one that is none any more.
    for (const char* at : {"NaN", "1e999"})
        EXPECT_FALSE(
            parseScenario(fmt::format(R"({{"steps": [{{"at": {}, "picture": "a"}}]}})", at),
                          "a.json")
                .scenario);
}

TEST(ScenarioTest, RefusesWorldsThatCannotBe) {
    const std::pair<const char*, const char*> cases[] = {
        {R"([])", "not an object"},
        {R"({"display": "1440x900"})", R"("display" means nothing here)"},
        {R"({"displays": "large"})", "describes no displays"},
        {R"({"displays": ""})", "describes no displays"},
        {R"({"displays": "0x900"})", "describes no displays"},
        {R"({"displays": "1440x-900"})", "describes no displays"},
        {R"({"displays": "1440x900 spaces=0"})", "describes no displays"},
        {R"({"displays": "1440x900 scale=0"})", "describes no displays"},
        {R"({"displays": "1440x900 color=1"})", "describes no displays"},
        {R"({"missing": ["fly"]})", "no system has a private function"},
        {R"({"apps": {}})", R"("apps" is not a list)"},
        {R"({"apps": [1]})", "an app is an object"},
        {R"({"apps": [{"id": "a"}]})", R"("name" is missing)"},
        {R"({"apps": [{"id": "a", "name": ""}]})", "an identifier and a name"},
        {R"({"apps": [{"id": "a", "name": "A", "seconds": -1}]})", R"("seconds" is not a number)"},
        {R"({"apps": [{"id": "a", "name": "A"}, {"id": "a", "name": "B"}]})", "two of a"},
        {R"({"usualApps": true, "apps": [{"id": "org.example.mail", "name": "A"}]})", "two of"},
        {R"({"apps": [{"id": "com.apple.finder", "name": "A"}]})", "the system's own"},
        {R"({"pinned": ["org.example.mail"]})", "pinned: org.example.mail is not installed"},
        {R"({"usualApps": true, "pinned": ["org.example.mail", "org.example.mail"]})", "twice"},
        {R"({"running": ["org.example.mail"]})", "running: org.example.mail is not installed"},
        {R"({"usualApps": true, "running": ["org.example.mail", "org.example.mail"]})", "twice"},
        {R"({"settings": []})", R"("settings" is not an object)"},
        {R"({"settings": {"styel": "bar"}})", R"(there is no setting "styel")"},
        {R"({"settings": {"style": null}})", R"(the setting "style" has no value)"},
        {R"({"dock": {"tileSize": 2}})", R"(dock: "tileSize" is not a number from 0 to 1)"},
        {R"({"dock": {"orientation": 5}})", "a whole number from 2 to 4"},
        {R"({"trash": -1})", R"("trash" is not)"},
    };
    std::vector<Refusal> refusals;
    for (const auto& [world, reason] : cases)
        refusals.push_back({fmt::format(R"({{"world": {}, "steps": []}})", world), reason});
    expectRefused(refusals);
    const char* possible = R"({"world": {
        "displays": "1440x900 scale=2 spaces=2 name=A, 1280x800", "usualApps": true,
        "apps": [{"id": "a", "name": "A", "seconds": 0, "window": false}],
        "pinned": ["a"], "running": ["a", "org.example.mail"],
        "settings": {"style": "bar", "barHeight": 60, "tools": ["widgets"], "mode": "systemDock"},
        "dock": {"tileSize": 0, "orientation": 4, "pinning": 1}}, "steps": []})";
    EXPECT_TRUE(parseScenario(possible, "a.json").scenario)
        << parseScenario(possible, "a.json").complaint;
}

std::vector<std::string> failuresOf(const std::string& steps) {
    const auto reading =
        parseScenario(R"({"world": {"usualApps": true}, "steps": [)" + steps + "]}", "a.json");
    EXPECT_TRUE(reading.scenario) << reading.complaint;
    if (!reading.scenario) return {};
    Stage stage;
    ScenarioRunner runner(*reading.scenario, stage);
    runner.play();
    return runner.failures();
}

TEST(ScenarioTest, SaysWhatIsNotAsExpected) {
    const std::pair<const char*, const char*> cases[] = {
        {R"({"at": 1, "expect": "/mode", "equals": "systemDock"})",
         R"(step 1 at 1 s: /mode is "vantrel", expected equals "systemDock")"},
        {R"({"at": 0, "expect": "/nothing", "equals": 1})", "/nothing is not there"},
        {R"({"at": 0, "expect": "/mode", "exists": false})", "/mode is there"},
        {R"({"at": 0, "expect": "/pinned", "count": 1})", "expected count 1"},
        {R"({"at": 0, "expect": "/pinned", "lacks": "org.example.mail"})", "expected lacks"},
        {R"({"at": 0, "expect": "/pinned", "contains": "org.example.maps"})", "expected contains"},
        {R"({"at": 0, "expect": "/mode", "lacks": "a"})", "expected lacks"},
        {R"({"at": 0, "expect": "/pinned", "ids": ["com.apple.finder"]})", "expected ids"},
        {R"({"at": 0, "do": "closeWindow", "window": "None"})", R"(there is no window "None")"},
        {R"({"at": 0, "do": "hide", "app": "org.example.maps"})", "no app org.example.maps runs"},
        {R"({"at": 0, "do": "switchSpace", "space": 3})", "there is no such Space"},
        {R"({"at": 0, "do": "click", "app": "org.example.maps"})", "no bar has a tile org.example.maps"},
        {R"({"at": 0, "do": "launch", "app": "org.example.fly"})", "fly is not installed"},
        {R"({"at": 0, "do": "hide", "app": "com.apple.finder#2"})", "no app com.apple.finder#2"},
        {R"({"at": 0, "do": "pin", "app": "org.example.mail"})", "is in the Dock already"},
        {R"({"at": 0, "do": "unpin", "app": "org.example.maps"})", "is not in the Dock"},
        {R"({"at": 0, "do": "removeSpace", "space": 0})", "keeps its last Space"},
        {R"({"at": 0, "do": "arrangeDock", "apps": ["org.example.mail", "org.example.mail"]})",
         "twice"},
        {R"({"at": 0, "do": "quitLarkspan"}, {"at": 1, "do": "mode", "mode": "vantrel"})",
         "step 2 at 1 s: Larkspan does not run"},
    };
    for (const auto& [steps, failure] : cases)
        EXPECT_THAT(failuresOf(steps), testing::ElementsAre(HasSubstr(failure))) << steps;
}

TEST(ScenarioTest, AStepWhoseMomentHasPassedSaysSo) {
    const std::string hung = R"(
        {"at": 1, "do": "launch", "app": "org.example.mail", "window": true},
        {"at": 2, "do": "answerAfter", "app": "org.example.mail", "seconds": 0.4},
        {"at": 3, "do": "click", "app": "org.example.mail"},)";
    EXPECT_THAT(failuresOf(hung + R"({"at": 3.1, "expect": "/running", "equals": true})"),
                testing::ElementsAre(HasSubstr("step 4 at 3.1 s: its moment has passed")));
    EXPECT_THAT(failuresOf(hung + R"({"at": 9, "expect": "/running", "equals": true})"), IsEmpty());
}

TEST(ScenarioTest, LookingOnTakesNoTime) {
    // The report asks each app for its windows, and one that hangs is waited for.
    std::string steps = R"(
        {"at": 1, "do": "launch", "app": "org.example.mail", "window": true},
        {"at": 2, "do": "hang", "app": "org.example.mail"})";
    for (int i = 0; i < 100; ++i)
        steps += R"(,{"at": 2, "expect": "/running", "equals": true})";
    EXPECT_THAT(failuresOf(steps), IsEmpty());
}

TEST(ScenarioTest, AKillLosesWhatWasNotStoredAndTheNextStartStillKnowsTheUsersDock) {
    EXPECT_THAT(failuresOf(R"(
        {"at": 2, "do": "killLarkspan"},
        {"at": 3, "expect": "/mac/settings", "contains": "savedDockProfile"},
        {"at": 4, "do": "startLarkspan"},
        {"at": 5, "do": "quitLarkspan"},
        {"at": 6, "expect": "/mac/dock/tileSize", "equals": 0.4286})"),
                IsEmpty());
}

} // namespace
} // namespace larkspan::sim
