#include "platform/sim/ScenarioRunner.h"

#include <filesystem>
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
    EXPECT_GE(played, 1);
}

TEST(ScenarioTest, RefusesWhatMakesNoSenseWithFileStepAndReason) {
    const std::pair<const char*, const char*> cases[] = {
        {R"({"steps": [)", "a.json: "},
        {R"([])", "a.json: a scenario is an object"},
        {R"({})", R"(a.json: "steps" is missing)"},
        {R"({"steps": [], "word": 1})", R"(a.json: "word" means nothing here)"},
        {R"({"world": {"displays": "large"}, "steps": []})", "describes no displays"},
        {R"({"world": {"missing": ["fly"]}, "steps": []})", "no system has a private function"},
        {R"({"steps": [{"do": "launch", "app": "a"}]})", R"(step 1: "at" is missing)"},
        {R"({"steps": [{"at": -1, "do": "launch", "app": "a"}]})", R"(step 1: "at" is not within)"},
        {R"({"steps": [{"at": 2, "picture": "a"}, {"at": 1, "picture": "b"}]})",
         "step 2: 1 seconds is before the step above, at 2"},
        {R"({"steps": [{"at": 0}]})", "exactly one of"},
        {R"({"steps": [{"at": 0, "do": "fly"}]})", R"(there is no action "fly")"},
        {R"({"steps": [{"at": 0, "do": "launch"}]})", R"("app" is missing)"},
        {R"({"steps": [{"at": 0, "do": "launch", "app": 1}]})", R"("app" is not a text)"},
        {R"({"steps": [{"at": 0, "do": "moveWindow", "window": "a", "frame": [1, 2]}]})",
         "four numbers"},
        {R"({"steps": [{"at": 0, "expect": "mode", "equals": 1}]})", "begins with"},
        {R"({"steps": [{"at": 0, "expect": "/mode"}]})", "an expectation has exactly one of"},
        {R"({"steps": [{"at": 0, "picture": "../a"}]})", "a picture's name"},
    };
    for (const auto& [text, reason] : cases) {
        const auto reading = parseScenario(text, "a.json");
        EXPECT_FALSE(reading.scenario) << text;
        EXPECT_THAT(reading.complaint, StartsWith("a.json: "));
        EXPECT_THAT(reading.complaint, HasSubstr(reason));
    }
    EXPECT_THAT(loadScenario("no-such-file.json").complaint, HasSubstr("cannot be read"));
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
        {R"({"at": 0, "do": "click", "app": "org.example.maps"})", "no item org.example.maps"},
        {R"({"at": 0, "do": "quitLarkspan"}, {"at": 1, "do": "mode", "mode": "vantrel"})",
         "step 2 at 1 s: Larkspan does not run"},
    };
    for (const auto& [steps, failure] : cases)
        EXPECT_THAT(failuresOf(steps), testing::ElementsAre(HasSubstr(failure))) << steps;
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
