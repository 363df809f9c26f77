#include "control/CommandLine.h"

#include <gtest/gtest.h>

namespace larkspan {
namespace {

using Action = CommandLine::Action;
using Words = std::vector<std::string>;

TEST(CommandLine, NamesOneActionOrARefusal) {
    const std::pair<Words, Action> cases[] = {
        {{}, Action::start},
        {{"--log"}, Action::start},
        {{"state"}, Action::request},
        {{"--help"}, Action::help},
        {{"--version"}, Action::version},
        {{"--demo"}, Action::demo},
        {{"--demo", "tour.json"}, Action::demo},
        {{"--demo", "tour.json", "--headless"}, Action::scenario},
        {{"--headless", "--state", "s", "--demo", "t"}, Action::scenario},
        {{"--demo", "--headless"}, Action::reject},
        {{"--headless"}, Action::reject},
        {{"--demo", "t", "--pictures", "p"}, Action::reject},
        {{"--demo", "t", "--headless", "--pictures"}, Action::reject},
        {{"--state", "s"}, Action::reject},
        {{"--loud"}, Action::reject},
    };
    for (const auto& [arguments, action] : cases) {
        const auto line = parseCommandLine(arguments);
        EXPECT_EQ(line.action, action) << testing::PrintToString(arguments);
        EXPECT_EQ(line.error.empty(), action != Action::reject);
    }
}

TEST(CommandLine, WordsAfterACommandAreItsOwn) {
    const auto line = parseCommandLine({"--log", "set", "islandInset", "--help"});
    EXPECT_EQ(line.words, (Words{"set", "islandInset", "--help"}));
    EXPECT_TRUE(line.isLogged);
}

TEST(CommandLine, AScenarioHasItsPaths) {
    const auto line = parseCommandLine(
        {"--demo", "tour.json", "--headless", "--pictures", "out", "--state", "end.json"});
    EXPECT_EQ(line.scenario, "tour.json");
    EXPECT_EQ(line.picturesFolder, "out");
    EXPECT_EQ(line.stateFile, "end.json");
}

} // namespace
} // namespace larkspan
