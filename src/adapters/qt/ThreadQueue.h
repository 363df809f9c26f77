#pragma once

#include "platform/Scheduler.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace larkspan::qt {

/// A serial queue with a thread of its own, which starts with the first task. Its end waits for the
/// task that runs and drops those behind it.
class ThreadQueue : public SerialQueue {
  public:
    ThreadQueue() = default;
    ~ThreadQueue() override;

    void post(std::function<void()> task) override;

  private:
    void run();

    std::mutex mutex_;
    std::condition_variable hasWork_;
    std::deque<std::function<void()>> tasks_;
    bool isEnding_ = false;
    std::thread thread_;
};

} // namespace larkspan::qt
