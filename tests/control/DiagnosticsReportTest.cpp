#include "control/DiagnosticsReport.h"

#include "app/LaunchedApp.h"

#include <gmock/gmock.h>

#include <sstream>

namespace larkspan {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

/// The date becomes 2026-05-01 12:34:56.789 UTC.
constexpr double someDate = 1777638896.789;

class DiagnosticsReportTest : public testing::Test {
  protected:
    DiagnosticsReportTest() { mac.scheduler.jumpWallClock(someDate - mac.scheduler.wallClock()); }

    sim::SimMac mac{"1440x900, 800x600 scale=2"};
};

TEST_F(DiagnosticsReportTest, SaysWhatRunsWhereAndWhen) {
    mac.refuseScreenRecording();
    LaunchedApp app(mac);
    const auto lines = linesOf(app.answer({"log"}).text);
    ASSERT_GT(lines.size(), 8U);
    EXPECT_EQ(lines[0], mac.application.description());
    EXPECT_EQ(lines[1], "saved: 2026-05-01 12:34:56.789Z");
    EXPECT_EQ(lines[2], "mode: vantrel");
    EXPECT_THAT(lines[3], StartsWith("screen 1 \""));
    EXPECT_THAT(lines[3], HasSubstr("1440 x 900 at 0, 0, for windows 1440 x "));
    EXPECT_THAT(lines[4], HasSubstr("800 x 600 at 1440, 300"));
    EXPECT_THAT(lines[4], HasSubstr("scale 2"));
    EXPECT_EQ(lines[5], "accessibility: granted, screen recording: missing");
    EXPECT_THAT(lines[6], StartsWith("lines: "));
    EXPECT_EQ(lines[7], "");
    EXPECT_THAT(lines, Contains("2026-05-01 12:34:56.789Z app: Larkspan started"));
}

TEST_F(DiagnosticsReportTest, HoldsEveryLineThatIsKept) {
    LaunchedApp app(mac);
    auto& log = app.controller.log();
    for (std::size_t i = 0; i < DiagnosticsLog::capacity + 5; ++i)
        log.write("bar", std::to_string(i));
    const auto lines = linesOf(diagnosticsReport(app.controller));
    EXPECT_EQ(lines[6], "lines: 10000, the newest of up to 10000");
    ASSERT_EQ(lines.size(), 8 + DiagnosticsLog::capacity);
    EXPECT_THAT(lines[8], testing::EndsWith("bar: 5"));
    EXPECT_THAT(lines.back(), testing::EndsWith("bar: 10004"));
}

} // namespace
} // namespace larkspan
