#include "adapters/sim/VirtualScheduler.h"

#include <algorithm>
#include <utility>

namespace larkspan::sim {

namespace {
/// 2026-01-01 09:41:00 UTC: every simulated Mac is switched on at the same moment.
constexpr double firstDate = 1'767'260'460;

/// An interval of nothing would keep the loop in one moment for ever.
double atLeastAMoment(double interval) {
    return std::max(interval, 0.001);
}
} // namespace

class VirtualScheduler::Queue final : public SerialQueue {
  public:
    explicit Queue(VirtualScheduler& scheduler)
        : scheduler_(scheduler) {}

    void post(std::function<void()> task) override {
        // A task never overtakes the one before it, even when the latency was made shorter.
        lastTurn_ = std::max(lastTurn_, scheduler_.now_ + scheduler_.queueLatency);
        ++waiting_;
        scheduler_.postToQueue(lastTurn_, [this, task = std::move(task)] {
            --waiting_;
            task();
        });
    }
    Handle every(double seconds, std::function<void()> task) override {
        const double interval = atLeastAMoment(seconds);
        return scheduler_.start(interval, interval, std::move(task), this);
    }
    void postBeat(const std::shared_ptr<Timer>& timer) {
        if (std::exchange(timer->isWaiting, true)) return;
        post([weak = std::weak_ptr(timer)] {
            const auto due = weak.lock();
            if (!due) return;
            due->isWaiting = false;
            due->task();
        });
    }
    std::size_t waiting() const { return waiting_; }

  private:
    VirtualScheduler& scheduler_;
    double lastTurn_ = 0;
    std::size_t waiting_ = 0;
};

VirtualScheduler::VirtualScheduler()
    : wallOffset_(firstDate) {}

VirtualScheduler::~VirtualScheduler() = default;

Handle VirtualScheduler::start(double seconds, double interval, Task task, Queue* queue) {
    const Due due{now_ + std::max(seconds, 0.0), ++sequence_};
    auto timer = std::make_shared<Timer>(Timer{due, interval, std::move(task), queue});
    timers_->emplace(due, timer);
    return Handle([weakTimers = std::weak_ptr(timers_), weakTimer = std::weak_ptr(timer)] {
        // A timer that has run is gone already, and its moment may be another's by now.
        const auto timers = weakTimers.lock();
        const auto ended = weakTimer.lock();
        if (!timers || !ended) return;
        const auto found = timers->find(ended->due);
        if (found != timers->end() && found->second == ended) timers->erase(found);
    });
}

Handle VirtualScheduler::after(double seconds, Task task) {
    return start(seconds, 0, std::move(task));
}

Handle VirtualScheduler::every(double seconds, Task task) {
    const double interval = atLeastAMoment(seconds);
    return start(interval, interval, std::move(task));
}

void VirtualScheduler::post(Task task) {
    posted_.push_back(std::move(task));
}

SerialQueue& VirtualScheduler::queue(std::string_view name) {
    auto found = queues_.find(name);
    if (found == queues_.end())
        found = queues_.emplace(std::string(name), std::make_unique<Queue>(*this)).first;
    return *found->second;
}

std::size_t VirtualScheduler::waitingTasks(std::string_view queueName) const {
    const auto found = queues_.find(queueName);
    return found == queues_.end() ? 0 : found->second->waiting();
}

void VirtualScheduler::postToQueue(double notBefore, Task task) {
    queued_.emplace(Due{notBefore, ++sequence_}, std::move(task));
}

void VirtualScheduler::reachMoment(double moment) {
    now_ = std::max(now_, moment);
}

bool VirtualScheduler::runPosted() {
    if (posted_.empty()) return false;
    const Task task = std::move(posted_.front());
    posted_.pop_front();
    ++turns_;
    task();
    return true;
}

bool VirtualScheduler::runTimer(double until) {
    if (timers_->empty() || timers_->begin()->first.first > until) return false;
    if (!queued_.empty() && queued_.begin()->first.first < timers_->begin()->first.first)
        return false;
    const auto timer = timers_->begin()->second;
    timers_->erase(timers_->begin());
    reachMoment(timer->due.first);
    if (timer->interval > 0) {
        // Beats missed while a turn took long are skipped, not made up for.
        const double next = timer->due.first + timer->interval;
        timer->due = {next > now_ ? next : now_ + timer->interval, ++sequence_};
        timers_->emplace(timer->due, timer);
    }
    if (timer->queue) {
        timer->queue->postBeat(timer);
        return true;
    }
    ++turns_;
    timer->task();
    return true;
}

bool VirtualScheduler::runQueued(double until) {
    if (queued_.empty() || queued_.begin()->first.first > until) return false;
    const auto node = queued_.extract(queued_.begin());
    reachMoment(node.key().first);
    ++turns_;
    inQueue_ = true;
    node.mapped()();
    inQueue_ = false;
    return true;
}

void VirtualScheduler::runFor(double seconds) {
    const double end = now_ + seconds;
    while (runPosted() || runTimer(end) || runQueued(end)) {
    }
    reachMoment(end);
}

void VirtualScheduler::runUntilIdle() {
    while (runPosted() || runTimer(now_) ||
           (!queued_.empty() && runQueued(queued_.begin()->first.first))) {
    }
}

} // namespace larkspan::sim
