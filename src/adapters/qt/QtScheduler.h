#pragma once

#include "platform/Scheduler.h"

#include <QObject>

#include <map>
#include <memory>
#include <string>
#include <thread>

namespace larkspan::qt {

class ThreadQueue;

/// The `Scheduler` of a real desktop: Qt's run loop on the main thread, one thread for each named
/// queue, started with the queue's first task. While nothing is scheduled nothing wakes the
/// program. Made on the main thread after the QCoreApplication; its end waits for the tasks that
/// run.
class QtScheduler : public Scheduler {
  public:
    QtScheduler();
    ~QtScheduler() override;

    double uptime() const override;
    double wallClock() const override;
    Handle after(double seconds, Task task) override;
    Handle every(double seconds, Task task) override;
    void post(Task task) override;
    SerialQueue& queue(std::string_view name) override;
    bool isMainThread() const override;

    /// Waits for the tasks that run and drops those behind them: for a desktop that goes before
    /// this scheduler does, and that they may be asking. Nobody may post to a queue afterwards.
    void endQueues();

  private:
    Handle startTimer(double seconds, bool repeats, Task task);

    const std::thread::id mainThread_ = std::this_thread::get_id();
    /// Receives what is posted and owns the timers.
    QObject context_;
    std::map<std::string, std::unique_ptr<ThreadQueue>, std::less<>> queues_;
};

} // namespace larkspan::qt
