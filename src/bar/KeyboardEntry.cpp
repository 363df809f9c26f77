#include "bar/KeyboardEntry.h"

#include <algorithm>

namespace larkspan {
namespace {

constexpr double secondsBetweenAttempts = 0.02;
/// Longer than anyone holds a key down that only starts something.
constexpr double longestWait = 2;

} // namespace

KeyboardEntry::KeyboardEntry(Scheduler& scheduler, const DockStore& store,
                             const BarController& bars, DiagnosticsLog& log)
    : scheduler_(scheduler)
    , store_(store)
    , bars_(bars)
    , log_(log) {}

bool KeyboardEntry::begin() {
    retry_.reset();
    if (!barInUse()) return false;
    attempt(scheduler_.uptime() + longestWait);
    return true;
}

/// The bar of the screen on which most of the front app's front window lies; else the first shown.
const BarController::Bar* KeyboardEntry::barInUse() const {
    const auto& windows = store_.latestWindows();
    const auto window = std::find_if(windows.begin(), windows.end(), [this](const auto& each) {
        return each.isOnScreen && each.pid == store_.frontmostPID().get();
    });
    const Rect work = window == windows.end() ? Rect{} : window->bounds;
    const BarController::Bar* best = nullptr;
    const auto share = [&work](const auto& bar) {
        return intersection(work, bar.screen.bounds).area();
    };
    for (const auto& bar : bars_.bars())
        if (bar.isShown && (!best || share(bar) > share(*best))) best = &bar;
    return best;
}

void KeyboardEntry::attempt(double deadline) {
    // Chosen again each time: bars come and go with their screens.
    const auto* bar = barInUse();
    if (!bar) return;
    // Before this bar takes it: giving it back afterwards would take it from this one too.
    for (const auto& other : bars_.bars())
        if (&other != bar) other.interaction->setKeyboard(false);
    if (bar->panel->takeKeyboard()) return bar->interaction->setKeyboard(true);
    if (scheduler_.uptime() >= deadline) {
        log_.write("bar", "another program holds the keyboard; the bar does without");
        return;
    }
    retry_ = scheduler_.after(secondsBetweenAttempts, [this, deadline] { attempt(deadline); });
}

} // namespace larkspan
