#include "scenario/ScenarioRunner.h"

#include <filesystem>
#include <fmt/format.h>
#include <gmock/gmock.h>

namespace larkspan::sim {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(ScenarioTest, EveryDemoScenarioPasses) {
    int played = 0;
    for (const auto& file : std::filesystem::directory_iterator(LARKSPAN_DEMO_FOLDER)) {
        SCOPED_TRACE(file.path());
        const auto reading = loadScenario(file.path());
        ASSERT_TRUE(reading.scenario) << reading.error;
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
        EXPECT_THAT(reading.error, StartsWith("a.json: "));
        EXPECT_THAT(reading.error, HasSubstr(reason)) << text;
    }
}

TEST(ScenarioTest, RejectsInvalidFiles) {
    expectRefused({
        {R"({"steps": [)", "a.json: "},
        {R"([])", "a.json: a scenario must be an object"},
        {R"({})", R"(a.json: "steps" is missing)"},
        {R"({"steps": {}})", R"("steps" is not a list)"},
        {R"({"steps": [], "word": 1})", R"(a.json: unknown field "word")"},
        {R"({"title": 1, "steps": []})", R"("title" is not a string)"},
        {R"({"title": "a", "title": "b", "steps": []})", R"(a.json: "title" appears twice)"},
        {R"({"steps": [{"at": 0, "picture": "a", "at": 1}]})", R"(step 1: "at" appears twice)"},
    });
    EXPECT_THAT(loadScenario("no-such-file.json").error,
                HasSubstr("cannot read no-such-file.json"));
}

TEST(ScenarioTest, RejectsInvalidStepsWithAReason) {
    const std::pair<const char*, const char*> cases[] = {
        {R"(1)", "a step must be an object"},
        {R"({"do": "launch", "app": "a"})", R"("at" is missing)"},
        {R"({"at": "1", "do": "launch", "app": "a"})", R"("at" is not a number)"},
        {R"({"at": -1, "do": "launch", "app": "a"})", R"("at" is not a number from 0 to 86400)"},
        {R"({"at": 86401, "do": "launch", "app": "a"})", R"("at" is not a number from 0)"},
        {R"({"at": 4.9, "picture": "b"})", "4.9 seconds is earlier than the previous step, at 5"},
        {R"({"at": 5})", "exactly one of"},
        {R"({"at": 5, "do": "hide", "picture": "a"})", "exactly one of"},
        {R"({"at": 5, "do": 5})", R"("do" is not a string)"},
        {R"({"at": 5, "do": "fly"})", R"(unknown action "fly")"},
        {R"({"at": 5, "do": "Launch", "app": "a"})", R"(unknown action "Launch")"},
        {R"({"at": 5, "do": "launch"})", R"("app" is missing)"},
        {R"({"at": 5, "do": "launch", "app": 1})", R"("app" is not a string)"},
        {R"({"at": 5, "do": "launch", "app": "a", "widow": true})", R"(unknown field "widow")"},
        {R"({"at": 5, "do": "launch", "app": "a", "seconds": -1})", R"("seconds" is not a number)"},
        {R"({"at": 5, "do": "launch", "app": "a", "window": 1})", "is not true or false"},
        {R"({"at": 5, "do": "launch", "app": "a", "note": 1})", R"("note" is not a string)"},
        {R"({"at": 5, "do": "moveWindow", "window": "a", "frame": [1, 2]})", "four numbers"},
        {R"({"at": 5, "do": "moveWindow", "window": "a", "frame": [1, 2, 3, "4"]})", "four"},
        {R"({"at": 5, "do": "moveWindow", "window": "a", "frame": [1, 2, 0, 4]})", "above 0"},
        {R"({"at": 5, "do": "switchSpace", "space": -1})", "a whole number of at least 0"},
        {R"({"at": 5, "do": "switchSpace", "space": 0.5})", "a whole number of at least 0"},
        {R"({"at": 5, "do": "setDock", "orientation": 1})", "a whole number from 2 to 4"},
        {R"({"at": 5, "do": "setDock", "tileSize": 64})", "a number from 0 to 1"},
        {R"({"at": 5, "do": "sleep", "seconds": -1})", R"("seconds" is not a number from 0)"},
        {R"({"at": 5, "do": "jumpClock", "seconds": 1e300})", R"("seconds" is not a number from)"},
        {R"({"at": 5, "do": "tell", "words": "quit"})", "a list of strings"},
        {R"({"at": 5, "expect": "mode", "equals": 1})", "must start with"},
        {R"({"at": 5, "expect": "/mode"})", "an expectation must have exactly one of"},
        {R"({"at": 5, "expect": "/a", "count": 1, "ids": []})",
         "an expectation must have exactly one of"},
        {R"({"at": 5, "expect": "/a", "equal": 1})", R"(unknown field "equal")"},
        {R"({"at": 5, "expect": "/a", "count": -1})", "a whole number of at least 0"},
        {R"({"at": 5, "expect": "/a", "ids": [1]})", "a list of strings"},
        {R"({"at": 5, "picture": "../a"})", "a picture's name"},
        {R"({"at": 5, "picture": "a", "app": "b"})", R"(unknown field "app")"},
    };
    std::vector<Refusal> refusals;
    for (const auto& [step, reason] : cases) {
        const std::string text = R"({"steps": [{"at": 5, "picture": "a"}, )";
        const auto reading = parseScenario(text + step + "]}", "a.json");
        EXPECT_THAT(reading.error, StartsWith("a.json: step 2: ")) << step;
        refusals.push_back({text + step + "]}", reason});
    }
    expectRefused(refusals);
    // Not a number, and a number that overflows.
    for (const char* at : {"NaN", "1e999"})
        EXPECT_FALSE(
            parseScenario(fmt::format(R"({{"steps": [{{"at": {}, "picture": "a"}}]}})", at),
                          "a.json")
                .scenario);
}

TEST(ScenarioTest, RejectsInvalidWorlds) {
    const std::pair<const char*, const char*> cases[] = {
        {R"([])", "must be an object"},
        {R"({"display": "1440x900"})", R"(unknown field "display")"},
        {R"({"displays": "large"})", "is not a list of displays"},
        {R"({"displays": ""})", "is not a list of displays"},
        {R"({"displays": "0x900"})", "is not a list of displays"},
        {R"({"displays": "1440x-900"})", "is not a list of displays"},
        {R"({"displays": "1440x900 spaces=0"})", "is not a list of displays"},
        {R"({"displays": "1440x900 scale=0"})", "is not a list of displays"},
        {R"({"displays": "1440x900 color=1"})", "is not a list of displays"},
        {R"({"missing": ["fly"]})", "unknown private function"},
        {R"({"apps": {}})", R"("apps" is not a list)"},
        {R"({"apps": [1]})", "an app must be an object"},
        {R"({"apps": [{"id": "a"}]})", R"("name" is missing)"},
        {R"({"apps": [{"id": "a", "name": ""}]})", "an identifier and a name"},
        {R"({"apps": [{"id": "a", "name": "A", "seconds": -1}]})", R"("seconds" is not a number)"},
        {R"({"apps": [{"id": "a", "name": "A"}, {"id": "a", "name": "B"}]})", "a is listed twice"},
        {R"({"usualApps": true, "apps": [{"id": "org.example.mail", "name": "A"}]})",
         "listed twice"},
        {R"({"apps": [{"id": "com.apple.finder", "name": "A"}]})", "belongs to the system"},
        {R"({"pinned": ["org.example.mail"]})", "pinned: org.example.mail is not installed"},
        {R"({"usualApps": true, "pinned": ["org.example.mail", "org.example.mail"]})", "twice"},
        {R"({"running": ["org.example.mail"]})", "running: org.example.mail is not installed"},
        {R"({"usualApps": true, "running": ["org.example.mail", "org.example.mail"]})", "twice"},
        {R"({"settings": []})", R"("settings" is not an object)"},
        {R"({"settings": {"styel": "bar"}})", R"(unknown setting "styel")"},
        {R"({"settings": {"style": null}})", R"(the setting "style" has an invalid value)"},
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
        << parseScenario(possible, "a.json").error;
}

std::vector<std::string> failuresOf(const std::string& steps) {
    const auto reading =
        parseScenario(R"({"world": {"usualApps": true}, "steps": [)" + steps + "]}", "a.json");
    EXPECT_TRUE(reading.scenario) << reading.error;
    if (!reading.scenario) return {};
    Stage stage;
    ScenarioRunner runner(*reading.scenario, stage);
    runner.play();
    return runner.failures();
}

TEST(ScenarioTest, ReportsFailedExpectations) {
    const std::pair<const char*, const char*> cases[] = {
        {R"({"at": 1, "expect": "/mode", "equals": "systemDock"})",
         R"(step 1 at 1 s: /mode is "vantrel", expected equals "systemDock")"},
        {R"({"at": 0, "expect": "/nothing", "equals": 1})", "/nothing does not exist"},
        {R"({"at": 0, "expect": "/mode", "exists": false})", "/mode exists"},
        {R"({"at": 0, "expect": "/pinned", "count": 1})", "expected count 1"},
        {R"({"at": 0, "expect": "/pinned", "lacks": "org.example.mail"})", "expected lacks"},
        {R"({"at": 0, "expect": "/pinned", "contains": "org.example.maps"})", "expected contains"},
        {R"({"at": 0, "expect": "/mode", "lacks": "a"})", "expected lacks"},
        {R"({"at": 0, "expect": "/pinned", "ids": ["com.apple.finder"]})", "expected ids"},
        {R"({"at": 0, "do": "closeWindow", "window": "None"})", R"(there is no window "None")"},
        {R"({"at": 0, "do": "hide", "app": "org.example.maps"})",
         "org.example.maps is not running"},
        {R"({"at": 0, "do": "switchSpace", "space": 3})", "there is no such Space"},
        {R"({"at": 0, "do": "click", "app": "org.example.maps"})", "no bar has a tile org.example.maps"},
        {R"({"at": 0, "do": "launch", "app": "org.example.fly"})", "fly is not installed"},
        {R"({"at": 0, "do": "hide", "app": "com.apple.finder#2"})",
         "com.apple.finder#2 is not running"},
        {R"({"at": 0, "do": "pin", "app": "org.example.mail"})", "is already in the Dock"},
        {R"({"at": 0, "do": "unpin", "app": "org.example.maps"})", "is not in the Dock"},
        {R"({"at": 0, "do": "removeSpace", "space": 0})", "the last Space of a display"},
        {R"({"at": 0, "do": "arrangeDock", "apps": ["org.example.mail", "org.example.mail"]})",
         "twice"},
        {R"({"at": 0, "do": "quitLarkspan"}, {"at": 1, "do": "mode", "mode": "vantrel"})",
         "step 2 at 1 s: Larkspan is not running"},
    };
    for (const auto& [steps, failure] : cases)
        EXPECT_THAT(failuresOf(steps), testing::ElementsAre(HasSubstr(failure))) << steps;
}

TEST(ScenarioTest, AStepThatComesTooLateFails) {
    const std::string hung = R"(
        {"at": 1, "do": "launch", "app": "org.example.mail", "window": true},
        {"at": 2, "do": "answerAfter", "app": "org.example.mail", "seconds": 0.4},
        {"at": 3, "do": "click", "app": "org.example.mail"},)";
    EXPECT_THAT(failuresOf(hung + R"({"at": 3.1, "expect": "/running", "equals": true})"),
                testing::ElementsAre(HasSubstr("step 4 at 3.1 s: too late")));
    EXPECT_THAT(failuresOf(hung + R"({"at": 9, "expect": "/running", "equals": true})"), IsEmpty());
}

TEST(ScenarioTest, ObservingTakesNoTime) {
    // The report asks each app for its windows, and waits for a hung one.
    std::string steps = R"(
        {"at": 1, "do": "launch", "app": "org.example.mail", "window": true},
        {"at": 2, "do": "hang", "app": "org.example.mail"})";
    for (int i = 0; i < 100; ++i)
        steps += R"(,{"at": 2, "expect": "/running", "equals": true})";
    EXPECT_THAT(failuresOf(steps), IsEmpty());
}

TEST(ScenarioTest, AfterAKillTheNextStartStillKnowsTheUsersDock) {
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
