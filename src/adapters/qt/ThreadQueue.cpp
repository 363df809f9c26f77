#include "adapters/qt/ThreadQueue.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace larkspan::qt {

struct ThreadQueue::Timer {
    double interval = 0;
    std::function<void()> task;
    /// Uptime in seconds. From here on only the queue's own thread.
    double due = 0;
    /// A run waits among the tasks.
    bool isWaiting = false;
};

struct ThreadQueue::Work {
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::function<void()>> tasks;
    std::vector<std::shared_ptr<Timer>> timers;
    bool isEnding = false;

    void postDueTimers(double now) {
        for (const auto& timer : timers) {
            if (timer->due > now) continue;
            const double next = timer->due + timer->interval;
            timer->due = next > now ? next : now + timer->interval;
            if (std::exchange(timer->isWaiting, true)) continue;
            tasks.emplace_back([weak = std::weak_ptr(timer)] {
                const auto due = weak.lock();
                if (!due) return;
                due->isWaiting = false;
                due->task();
            });
        }
    }

    /// Absent without timers.
    std::optional<double> nextDue() const {
        const auto next = std::ranges::min_element(
            timers, {}, [](const std::shared_ptr<Timer>& timer) { return timer->due; });
        return next == timers.end() ? std::nullopt : std::optional((*next)->due);
    }
};

ThreadQueue::ThreadQueue(std::function<double()> uptime)
    : uptime_(std::move(uptime))
    , work_(std::make_shared<Work>()) {}

ThreadQueue::~ThreadQueue() {
    {
        const std::lock_guard lock(work_->mutex);
        work_->isEnding = true;
    }
    work_->changed.notify_one();
    if (thread_.joinable()) thread_.join();
}

void ThreadQueue::post(std::function<void()> task) {
    const std::lock_guard lock(work_->mutex);
    work_->tasks.push_back(std::move(task));
    wake();
}

Handle ThreadQueue::every(double seconds, std::function<void()> task) {
    // An interval of nothing would never let the thread sleep.
    const double interval = std::max(seconds, 0.001);
    const auto timer = std::make_shared<Timer>(
        Timer{.interval = interval, .task = std::move(task), .due = uptime_() + interval});
    const std::lock_guard lock(work_->mutex);
    work_->timers.push_back(timer);
    wake();
    return Handle([weakWork = std::weak_ptr(work_), weakTimer = std::weak_ptr(timer)] {
        const auto work = weakWork.lock();
        // Kept until the lock is gone: what the task holds may call the queue as it ends.
        const auto ended = weakTimer.lock();
        if (!work || !ended) return;
        const std::lock_guard guard(work->mutex);
        std::erase(work->timers, ended);
        work->changed.notify_one();
    });
}

/// Under the lock.
void ThreadQueue::wake() {
    if (!thread_.joinable() && !work_->isEnding) thread_ = std::thread([this] { run(); });
    work_->changed.notify_one();
}

void ThreadQueue::run() {
    // Signals are the main thread's.
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);

    std::unique_lock lock(work_->mutex);
    while (!work_->isEnding) {
        const double now = uptime_();
        work_->postDueTimers(now);
        if (work_->tasks.empty()) {
            if (const auto next = work_->nextDue())
                work_->changed.wait_for(lock, std::chrono::duration<double>(*next - now));
            else
                work_->changed.wait(lock);
            continue;
        }
        auto task = std::move(work_->tasks.front());
        work_->tasks.pop_front();
        lock.unlock();
        task();
        // What the task holds is let go before the next one begins, and never under the lock.
        task = nullptr;
        lock.lock();
    }
}

} // namespace larkspan::qt
