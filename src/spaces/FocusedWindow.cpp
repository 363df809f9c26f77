#include "spaces/FocusedWindow.h"

#include <algorithm>
#include <cmath>

namespace larkspan {

namespace {

/// The points by which equal frames may differ.
constexpr double tolerance = 1;

bool fills(const Rect& window, const Screen& screen, double barHeight) {
    const Rect& bounds = screen.bounds;
    const double menuBar = screen.frame.maxY() - screen.visibleFrame.maxY();
    return std::abs(window.minX() - bounds.minX()) <= tolerance &&
           std::abs(window.width - bounds.width) <= tolerance &&
           window.minY() <= bounds.minY() + menuBar + tolerance &&
           window.maxY() > bounds.maxY() - barHeight + tolerance;
}

} // namespace

std::optional<Screen> screenFilledBy(const Rect& windowFrame, const std::vector<Screen>& screens,
                                     double barHeight) {
    const auto found = std::ranges::find_if(
        screens, [&](const Screen& screen) { return fills(windowFrame, screen, barHeight); });
    if (found == screens.end()) return std::nullopt;
    return *found;
}

} // namespace larkspan
