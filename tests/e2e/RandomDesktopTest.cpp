#include "DesktopReading.h"
#include "DesktopScript.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <iostream>

namespace larkspan::e2e {
namespace {

// Long enough for every action to happen several times.
constexpr double secondsInTheSuite = 12;
constexpr std::uint32_t seedInTheSuite = 20;

double numberFrom(const char* variable, double fallback) {
    const char* value = std::getenv(variable);
    return value ? std::atof(value) : fallback;
}

std::string lastLines(const std::string& text, int count) {
    auto start = text.size();
    for (int line = 0; line <= count && start != std::string::npos && start > 0; ++line)
        start = text.rfind('\n', start - 1);
    return start == std::string::npos ? text : text.substr(start);
}

/// The bar beside a user and programs that act at random. Whenever they pause, the report must
/// match the X server.
class RandomDesktop : public testing::Test {
  protected:
    bool isInStep() {
        readings_ = {readServer(script.pager()), readReport(bar.state())};
        return readings_.first == readings_.second;
    }

    /// Clicks a tile, which shows or hides its app.
    void clickATile() {
        const auto report = bar.state();
        std::vector<std::string> ids;
        for (const auto& group : report["groups"])
            for (const auto& item : group["items"])
                ids.push_back(item["id"]);
        for (const auto& item : report["background"])
            ids.push_back(item["id"]);
        if (ids.empty()) return;
        const auto& id = ids[script.below(static_cast<std::uint32_t>(ids.size()))];
        script.note("click " + id);
        bar.command({"click", id});
    }

    /// Compares the report with the X server while nothing happens.
    void expectInStep() {
        ASSERT_TRUE(script.settle()) << "the window manager does not respond after\n"
                                     << script.takeStory();
        ++rests;
        const auto story = script.takeStory();
        ASSERT_TRUE(desktop.screen().eventually([&] { return isInStep(); }))
            << "at rest " << rests << " of seed " << seed << " the report differs:\n"
            << differences(readings_.first, readings_.second) << "after these actions:\n"
            << story << "the X server's windows:\n"
            << serverText(script.pager()) << "the end of the log:\n"
            << lastLines(contentsOf(desktop.home() / "larkspan.log"), 40);
    }

    const std::uint32_t seed =
        static_cast<std::uint32_t>(numberFrom("LARKSPAN_DESKTOP_SEED", seedInTheSuite));
    PrivateDesktop desktop;
    DesktopScript script{desktop, seed};
    RunningBar bar{desktop};
    int rests = 0;

  private:
    std::pair<DesktopReading, DesktopReading> readings_;
};

TEST_F(RandomDesktop, TheReportAtRestMatchesTheServer) {
    const double seconds = numberFrom("LARKSPAN_DESKTOP_SECONDS", secondsInTheSuite);
    std::cout << "seed " << seed << ", " << seconds << " s" << std::endl;
    // One pinned app that is running, and one that is not.
    for (const auto* id : {"test-xedit", "test-xeyes"})
        ASSERT_EQ(bar.command({"pin", id}).exitCode, 0);

    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    while (Clock::now() < end && !HasFatalFailure()) {
        script.act();
        if (script.below(3) == 0) clickATile();
        expectInStep();
    }
    if (HasFatalFailure()) return;
    script.closeEverything();
    expectInStep();
    const auto report = bar.state();
    EXPECT_TRUE(report["groups"].empty() && report["background"].empty()) << report.dump(1);
    EXPECT_EQ(bar.quit(), 0) << contentsOf(desktop.home() / "larkspan.log");
    std::cout << script.actCount() << " actions, " << rests << " rests" << std::endl;
}

} // namespace
} // namespace larkspan::e2e
