#include "control/DiagnosticsReport.h"

#include "app/AppController.h"

#include <chrono>
#include <fmt/format.h>
#include <iterator>

namespace larkspan {
namespace {

/// As "2026-05-01 12:34:56.789Z".
std::string timeText(double secondsSince1970) {
    namespace chrono = std::chrono;
    const chrono::sys_time<chrono::milliseconds> time(
        chrono::milliseconds(static_cast<std::int64_t>(secondsSince1970 * 1000)));
    const auto day = chrono::floor<chrono::days>(time);
    const chrono::year_month_day date(day);
    const chrono::hh_mm_ss clock(time - day);
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}.{:03}Z", static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                       clock.hours().count(), clock.minutes().count(), clock.seconds().count(),
                       clock.subseconds().count());
}

std::string frameText(const Rect& frame) {
    return fmt::format("{} x {} at {}, {}", frame.width, frame.height, frame.x, frame.y);
}

std::string_view granted(bool isGranted) {
    return isGranted ? "granted" : "missing";
}

} // namespace

std::string diagnosticsReport(const AppController& controller) {
    const auto& lines = controller.log().lines();
    std::string text = fmt::format("{}\n", controller.description());
    const auto out = std::back_inserter(text);
    fmt::format_to(out, "saved: {}\n", timeText(controller.log().now()));
    fmt::format_to(out, "mode: {}\n", rawValue(controller.mode()));
    for (const auto& screen : controller.screens())
        fmt::format_to(out, "screen {} \"{}\": {}, for windows {}, scale {}\n", screen.display,
                       screen.displayIdentifier, frameText(screen.frame),
                       frameText(screen.visibleFrame), screen.scale);
    fmt::format_to(out, "accessibility: {}, screen recording: {}\n",
                   granted(controller.isAccessibilityTrusted()),
                   granted(controller.canCaptureScreen()));
    fmt::format_to(out, "lines: {}, the newest of up to {}\n\n", lines.size(),
                   DiagnosticsLog::capacity);
    for (const auto& line : lines)
        fmt::format_to(out, "{} {}: {}\n", timeText(line.time), line.category, line.text);
    // Whoever prints it ends the last line.
    text.pop_back();
    return text;
}

} // namespace larkspan
