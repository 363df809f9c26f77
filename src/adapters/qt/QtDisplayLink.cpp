#include "adapters/qt/QtDisplayLink.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace larkspan::qt {

namespace {
constexpr double slowestRate = 30;
constexpr double usualRate = 60;
constexpr double fastestRate = 240;
} // namespace

Handle QtDisplayLink::start(std::function<void()> frameDrawn) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    // Servers without a real display report a rate of 0 or of a few frames.
    const double rate = screen ? screen->refreshRate() : usualRate;
    return scheduler_.every(1 / std::clamp(rate, slowestRate, fastestRate), std::move(frameDrawn));
}

} // namespace larkspan::qt
