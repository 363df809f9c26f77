#pragma once

#include "platform/Scheduler.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace larkspan::sim {

/// A scheduler whose time passes only when it is told to: an hour runs in milliseconds, in the same
/// order every time. Named queues run as turns of the same loop, during which `isMainThread` is
/// false. Timers due at the same moment run in the order they were made, posted tasks before
/// timers, and tasks of queues after both. Everything happens on the one thread that calls it.
class VirtualScheduler final : public Scheduler {
  public:
    VirtualScheduler();
    ~VirtualScheduler() override;
    VirtualScheduler(const VirtualScheduler&) = delete;
    VirtualScheduler& operator=(const VirtualScheduler&) = delete;

    double uptime() const override { return now_; }
    double wallClock() const override { return now_ + wallOffset_; }
    Handle after(double seconds, Task task) override;
    Handle every(double seconds, Task task) override;
    void post(Task task) override;
    SerialQueue& queue(std::string_view name) override;
    bool isMainThread() const override { return !inQueue_; }

    /// Lets that much time pass and runs all that falls due in it. Every turn starts at its own
    /// moment, unless turns before it spent longer.
    void runFor(double seconds);
    /// Runs what is due now and all that follows from it. Time passes only as far as tasks of
    /// queues need; timers of later moments stay.
    void runUntilIdle();

    /// The current turn takes that long, as a call that blocks does. What falls due meanwhile runs
    /// late.
    void spend(double seconds) { now_ += seconds; }
    /// The date jumps; the media clock does not.
    void jumpWallClock(double seconds) { wallOffset_ += seconds; }
    /// The machine sleeps: the date goes on, the media clock stands still.
    void sleepFor(double seconds) { wallOffset_ += seconds; }

    /// Seconds between posting a task to a queue and its turn.
    double queueLatency = 0;
    /// How many turns have been run. Zero turns in a span is a program that was not woken.
    std::uint64_t turns() const { return turns_; }
    /// How many timers are set.
    std::size_t timerCount() const { return timers_->size(); }
    /// How many tasks were posted to the queue and have not had their turn.
    std::size_t waitingTasks(std::string_view queueName) const;

  private:
    class Queue;
    /// When, and in which order among those of the same moment.
    using Due = std::pair<double, std::uint64_t>;
    struct Timer {
        Due due;
        /// 0 for a timer that runs once.
        double interval = 0;
        Task task;
        /// Runs there; nullptr for a timer of the main thread.
        Queue* queue = nullptr;
        /// A run waits in the queue.
        bool isWaiting = false;
    };
    using Timers = std::map<Due, std::shared_ptr<Timer>>;

    Handle start(double seconds, double interval, Task task, Queue* queue = nullptr);
    void postToQueue(double notBefore, Task task);
    bool runPosted();
    bool runTimer(double until);
    bool runQueued(double until);
    void reachMoment(double moment);

    double now_ = 0;
    double wallOffset_;
    bool inQueue_ = false;
    std::uint64_t sequence_ = 0;
    std::uint64_t turns_ = 0;
    std::deque<Task> posted_;
    std::shared_ptr<Timers> timers_ = std::make_shared<Timers>();
    std::map<Due, Task> queued_;
    std::map<std::string, std::unique_ptr<Queue>, std::less<>> queues_;
};

} // namespace larkspan::sim
