#include "adapters/qt/ThreadQueue.h"

#include <csignal>
#include <utility>

namespace larkspan::qt {

ThreadQueue::~ThreadQueue() {
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = true;
    }
    hasWork_.notify_one();
    if (thread_.joinable()) thread_.join();
}

void ThreadQueue::post(std::function<void()> task) {
    {
        const std::lock_guard lock(mutex_);
        if (isEnding_) return;
        tasks_.push_back(std::move(task));
        if (!thread_.joinable()) thread_ = std::thread([this] { run(); });
    }
    hasWork_.notify_one();
}

void ThreadQueue::run() {
    // Signals are the main thread's.
    sigset_t all;
    sigfillset(&all);
    pthread_sigmask(SIG_BLOCK, &all, nullptr);

    std::unique_lock lock(mutex_);
    while (true) {
        hasWork_.wait(lock, [this] { return isEnding_ || !tasks_.empty(); });
        if (isEnding_) return;
        auto task = std::move(tasks_.front());
        tasks_.pop_front();
        lock.unlock();
        task();
        // What the task holds is let go before the next one begins, and never under the lock.
        task = nullptr;
        lock.lock();
    }
}

} // namespace larkspan::qt
