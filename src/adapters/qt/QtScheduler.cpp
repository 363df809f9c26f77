#include "adapters/qt/QtScheduler.h"

#include "adapters/qt/ThreadQueue.h"

#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>
#include <utility>

namespace larkspan::qt {

namespace {

#ifdef __APPLE__
constexpr clockid_t uptimeClock = CLOCK_UPTIME_RAW;
#else
// Stands still while the machine sleeps, unlike CLOCK_BOOTTIME.
constexpr clockid_t uptimeClock = CLOCK_MONOTONIC;
#endif

double secondsOf(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// Whole milliseconds, rounded up: a timer may be late but never early.
int milliseconds(double seconds) {
    const double rounded = std::ceil(seconds * 1000.0 - 1e-6);
    constexpr double longest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(rounded, 0.0, longest));
}

} // namespace

QtScheduler::QtScheduler() = default;
QtScheduler::~QtScheduler() = default;

double QtScheduler::uptime() const {
    return secondsOf(uptimeClock);
}

double QtScheduler::wallClock() const {
    return secondsOf(CLOCK_REALTIME);
}

Handle QtScheduler::after(double seconds, Task task) {
    return startTimer(seconds, false, std::move(task));
}

Handle QtScheduler::every(double seconds, Task task) {
    return startTimer(seconds, true, std::move(task));
}

Handle QtScheduler::startTimer(double seconds, bool repeats, Task task) {
    auto* timer = new QTimer(&context_);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setSingleShot(!repeats);
    QObject::connect(timer, &QTimer::timeout, timer, std::move(task));
    timer->start(milliseconds(seconds));
    return Handle([pointer = QPointer(timer)] {
        if (!pointer) return;
        // Deleted later: the handle may end inside the task.
        pointer->stop();
        pointer->disconnect();
        pointer->deleteLater();
    });
}

void QtScheduler::post(Task task) {
    QMetaObject::invokeMethod(&context_, std::move(task), Qt::QueuedConnection);
}

SerialQueue& QtScheduler::queue(std::string_view name) {
    auto found = queues_.find(name);
    if (found == queues_.end()) {
        auto queue = std::make_unique<ThreadQueue>([this] { return uptime(); });
        found = queues_.emplace(std::string(name), std::move(queue)).first;
    }
    return *found->second;
}

void QtScheduler::endQueues() {
    queues_.clear();
}

bool QtScheduler::isMainThread() const {
    return std::this_thread::get_id() == mainThread_;
}

} // namespace larkspan::qt
