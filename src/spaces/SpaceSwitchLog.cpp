#include "spaces/SpaceSwitchLog.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace larkspan {
namespace {

constexpr const char* subsystem = "com.tessaly.Vantrel";
constexpr const char* switchLogCategory = "SpaceSwitchLog";
/// Frames more than this many seconds apart were delayed: three frames at sixty per second.
constexpr double longestFrame = 0.05;

std::string describe(const BarState& bar) {
    return fmt::format("display {} drawn {:.1f} pt down, opacity {:.2f}, {}, {}", bar.display,
                       bar.drop, bar.opacity, bar.isOnScreen ? "on screen" : "off screen",
                       bar.isWanted ? "wanted" : "not wanted");
}

std::string describe(const Screen& screen) {
    const Rect& frame = screen.frame;
    const Rect& visible = screen.visibleFrame;
    const double bottom = visible.minY() - frame.minY();
    const double left = visible.minX() - frame.minX();
    const double right = frame.maxX() - visible.maxX();
    const auto [edge, strip] = bottom > 0  ? std::pair("bottom", bottom)
                               : left > 0  ? std::pair("left", left)
                               : right > 0 ? std::pair("right", right)
                                           : std::pair("elsewhere", 0.0);
    return fmt::format("display {} at ({:g}, {:g}, {:g}, {:g}), Dock {} strip {:g} pt",
                       screen.display, frame.x, frame.y, frame.width, frame.height, edge, strip);
}

} // namespace

SpaceSwitchLog::SpaceSwitchLog(Scheduler& scheduler, SystemLog& systemLog, DisplayLink& displayLink,
                               const Screens& screens)
    : scheduler_(scheduler)
    , systemLog_(systemLog)
    , displayLink_(displayLink)
    , screens_(screens) {}

void SpaceSwitchLog::write(SystemLog::Level level, const std::string& text) {
    systemLog_.write(subsystem, switchLogCategory, level, text);
}

void SpaceSwitchLog::stamp(std::string_view kind, std::string_view text, Mark mark) {
    constexpr auto level = SystemLog::Level::standard;
    if (!systemLog_.isEnabled(level)) return;
    const auto reading = clock_.mark(mark, scheduler_.uptime());
    if (!reading) return;
    if (reading->isStarted)
        begin(kind, text, reading->endsAnother);
    else
        write(level, fmt::format("+{}ms {}: {}", reading->milliseconds, kind, text));
}

void SpaceSwitchLog::stampError(std::string_view kind, std::string_view text) {
    const auto reading = clock_.mark(Mark::ordinary, scheduler_.uptime());
    write(SystemLog::Level::error,
          reading ? fmt::format("+{}ms {}: {}", reading->milliseconds, kind, text)
                  : fmt::format("{}: {}", kind, text));
}

void SpaceSwitchLog::begin(std::string_view kind, std::string_view text, bool endsAnother) {
    constexpr auto level = SystemLog::Level::standard;
    if (endsAnother) write(level, "──── switch timeline ends");
    write(level, "──── switch timeline starts");
    write(level, fmt::format("started; {}: {}", kind, text));
    scheduler_.post([this, alive = std::weak_ptr(alive_)] {
        if (!alive.expired()) follow();
    });
}

void SpaceSwitchLog::follow() {
    lastBars_.clear();
    awaitEnd();
    if (std::exchange(isFollowing_, true)) return;
    lastFrame_.reset();
    frames_ = displayLink_.start([this] { frameDrawn(); });
    if (onRunning) onRunning(true);
}

void SpaceSwitchLog::awaitEnd() {
    const double now = scheduler_.uptime();
    endTimer_ = scheduler_.after(clock_.end().value_or(now) - now, [this] { end(); });
}

void SpaceSwitchLog::end() {
    // Stamps since the timer was set have extended the timeline.
    if (!clock_.finish(scheduler_.uptime())) return awaitEnd();
    write(SystemLog::Level::standard, "──── switch timeline ends");
    isFollowing_ = false;
    frames_.reset();
    if (onRunning) onRunning(false);
}

std::vector<BarState> SpaceSwitchLog::bars() const {
    return readBars ? readBars() : std::vector<BarState>();
}

void SpaceSwitchLog::frameDrawn() {
    const double now = scheduler_.uptime();
    const double gap = now - lastFrame_.value_or(now);
    lastFrame_ = now;
    if (gap > longestFrame)
        stamp("frames", fmt::format("busy for {:.0f} ms", gap * 1000), Mark::passive);
    auto drawn = bars();
    for (const auto& bar : drawn)
        if (std::find(lastBars_.begin(), lastBars_.end(), bar) == lastBars_.end())
            stamp("bars", describe(bar), Mark::passive);
    lastBars_ = std::move(drawn);
}

void SpaceSwitchLog::spaceChanged() {
    stamp("spaces", "macOS posted the Space change", Mark::starting);
    for (const auto& bar : bars())
        stamp("bars", "after the Space change: " + describe(bar), Mark::passive);
}

void SpaceSwitchLog::appActivated(const RunningApplication& application) {
    stamp(
        "front app",
        fmt::format("{} ({})", application.localizedName,
                    application.bundleIdentifier.value_or(fmt::format("pid {}", application.pid))),
        Mark::ordinary);
}

void SpaceSwitchLog::screensChanged() {
    stamp("screens", "macOS posted a change of the screens", Mark::ordinary);
    for (const auto& screen : screens_.screens())
        stamp("screens", describe(screen), Mark::ordinary);
}

} // namespace larkspan
