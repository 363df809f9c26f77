#include "dock/DockFitting.h"

#include "dock/DockBand.h"
#include "dock/DockIconSize.h"
#include "dock/DockProfile.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace larkspan {
namespace {

/// A strip up to this much lower than the bar fits; a higher one never does.
constexpr double tolerance = 2;
/// After a smaller change, the strip has not followed the icon size.
constexpr double leastGrowth = 1;

} // namespace

DockFitting::DockFitting(Scheduler& scheduler, CoreDock& dock, Screens& screens, double height,
                         std::function<void(float)> onFinished)
    : scheduler_(scheduler)
    , dock_(dock)
    , screens_(screens)
    , height_(height)
    , onFinished_(std::move(onFinished)) {
    setSize(firstIconSize(height));
    grownSize_ = size_;
    measureLater();
}

void DockFitting::setSize(double pixels) {
    size_ = pixels;
    setTileSizeTwice(dock_, tileFraction(pixels));
}

void DockFitting::measureLater() {
    timer_ = scheduler_.after(settleSeconds, [this] { measure(); });
}

void DockFitting::measure() {
    double tallest = 0;
    for (const auto& band : DockBand::bands(screens_))
        tallest = std::max(tallest, band.frame.height);
    const double missing = height_ - tallest;
    const bool fits = missing >= 0 && missing < tolerance;
    if (tallest == 0 || fits)
        finish(size_);
    else
        correct(tallest);
}

void DockFitting::correct(double stripHeight) {
    const double missing = height_ - stripHeight;
    const double growth = stripHeight - lastStripHeight_;
    if (growth >= leastGrowth) grownSize_ = size_;
    if (missing > 0 && std::abs(growth) < leastGrowth) {
        setSize(grownSize_);
        finish(size_);
        return;
    }
    double step = std::round(missing);
    if (step == 0) step = missing > 0 ? 1 : -1;
    const double corrected = std::clamp(size_ + step, 1.0, 128.0);
    if (corrections_ == mostCorrections) {
        finish(corrected);
        return;
    }
    lastStripHeight_ = stripHeight;
    ++corrections_;
    setSize(corrected);
    measureLater();
}

void DockFitting::finish(double pixels) {
    // The callback may destroy this.
    const auto onFinished = std::move(onFinished_);
    onFinished(tileFraction(pixels));
}

} // namespace larkspan
