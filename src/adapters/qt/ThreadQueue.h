#pragma once

#include "platform/Scheduler.h"

#include <functional>
#include <memory>
#include <thread>

namespace larkspan::qt {

/// A serial queue with a thread of its own, which starts with the first task or timer and sleeps
/// while none is due. Its end waits for the task that runs and drops all others.
class ThreadQueue : public SerialQueue {
  public:
    /// `uptime` returns seconds; on any thread.
    explicit ThreadQueue(std::function<double()> uptime);
    ~ThreadQueue() override;

    void post(std::function<void()> task) override;
    Handle every(double seconds, std::function<void()> task) override;

  private:
    struct Timer;
    struct Work;

    void wake();
    void run();

    const std::function<double()> uptime_;
    /// Shared with the handles of timers, which may end later than the queue.
    const std::shared_ptr<Work> work_;
    std::thread thread_;
};

} // namespace larkspan::qt
