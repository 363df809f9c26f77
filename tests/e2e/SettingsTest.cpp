#include "RunningBar.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>

namespace larkspan::e2e {
namespace {

using nlohmann::json;

class Settings : public testing::Test {
  protected:
    std::string valueOf(const RunningBar& bar, const std::string& key) {
        auto text = bar.command({"get", key}).output;
        while (!text.empty() && text.back() == '\n')
            text.pop_back();
        return text;
    }

    PrivateDesktop desktop;
};

TEST_F(Settings, SurviveARestart) {
    {
        RunningBar bar(desktop);
        EXPECT_EQ(bar.command({"set", "barHeight", "90"}).exitCode, 0);
        EXPECT_EQ(bar.command({"set", "style", "bar"}).exitCode, 0);
        EXPECT_EQ(bar.command({"pin", "test-xclock"}).exitCode, 0);
        EXPECT_TRUE(desktop.screen().eventually([&] { return bar.area().height == 90; }))
            << bar.state().dump(1);
        EXPECT_EQ(bar.quit(), 0);
    }
    RunningBar bar(desktop);
    EXPECT_EQ(json::parse(valueOf(bar, "barHeight"), nullptr, false), json(90));
    EXPECT_NE(valueOf(bar, "style").find("bar"), std::string::npos);
    EXPECT_EQ(bar.area().height, 90);
    EXPECT_EQ(bar.area().width, desktop.screen().width());
    EXPECT_TRUE(desktop.screen().eventually([&] {
        return bar.tile(testApp("test-xclock")).has_value();
    })) << "the app is not pinned any more";
    EXPECT_EQ(desktop.screen().workArea().height, desktop.screen().height() - 90);
}

// The program is killed during a stream of changes, each time a little later. The file must always
// be complete: one of the values that were set, beside everything set before.
TEST_F(Settings, AreReadableAfterAKillAtAnyMoment) {
    constexpr int rounds = 24;
    constexpr int mostRounds = 40;
    int heights = 0;
    std::chrono::microseconds wait{0};
    // On a busy machine the first write is late: continue until one kill came after it.
    for (int round = 0; round < rounds || (heights == 0 && round < mostRounds); ++round) {
        RunningBar bar(desktop);
        if (round == 0) {
            ASSERT_EQ(bar.command({"set", "islandPadding", "21"}).exitCode, 0);
        }
        const auto set = [&](int value) {
            return ChildProcess::Start{
                {LARKSPAN_PROGRAM, "set", "barHeight", std::to_string(value)},
                desktop.environment(),
                desktop.home() / "set.log"};
        };
        std::vector<std::unique_ptr<ChildProcess>> changes;
        for (int value = 40; value < 44; ++value)
            changes.push_back(std::make_unique<ChildProcess>(set(value)));
        // The kill comes half a millisecond later in each round.
        const auto moment = std::chrono::steady_clock::now() + wait;
        wait = round < rounds ? wait + std::chrono::microseconds(500) : wait * 3 / 2;
        while (std::chrono::steady_clock::now() < moment) {
        }
        bar.process().signal(SIGKILL);
        ASSERT_EQ(bar.process().waitForExit(5), 128 + SIGKILL);

        const auto stored = json::parse(contentsOf(desktop.settingsFile()), nullptr, false);
        ASSERT_TRUE(stored.is_object())
            << "round " << round << " has " << contentsOf(desktop.settingsFile());
        EXPECT_EQ(stored.value("islandPadding", 0.0), 21.0) << "round " << round;
        if (stored.contains("barHeight")) {
            ++heights;
            EXPECT_GE(stored["barHeight"].get<double>(), 40);
            EXPECT_LE(stored["barHeight"].get<double>(), 43);
        }
        EXPECT_FALSE(std::filesystem::exists(desktop.settingsFile().string() + ".damaged"));
    }
    EXPECT_GT(heights, 0) << "no kill came after a write, so the test proves nothing";
}

TEST_F(Settings, DamagedOnesAreRenamedAndTheBarStartsWithoutThem) {
    const std::string damaged = "{\"barHeight\": 60, \"style\"";
    std::filesystem::create_directories(desktop.settingsFile().parent_path());
    std::ofstream(desktop.settingsFile()) << damaged;

    RunningBar bar(desktop);
    EXPECT_EQ(bar.area().height > 0, true);
    EXPECT_EQ(bar.command({"set", "barHeight", "64"}).exitCode, 0);
    EXPECT_EQ(contentsOf(desktop.settingsFile().string() + ".damaged"), damaged);
    const auto stored = json::parse(contentsOf(desktop.settingsFile()), nullptr, false);
    ASSERT_TRUE(stored.is_object());
    EXPECT_EQ(stored.value("barHeight", 0.0), 64);
    EXPECT_NE(contentsOf(desktop.home() / "larkspan.log").find("settings.json.damaged"),
              std::string::npos)
        << "the log does not name the renamed file";
}

} // namespace
} // namespace larkspan::e2e
