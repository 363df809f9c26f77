#pragma once

#include "platform/Handle.h"

#include <functional>
#include <string_view>

namespace larkspan {

/// Runs tasks one after the other, in order, off the main thread (on the simulated Mac: in its own
/// turn). While it has neither a task nor a timer, it wakes nobody. All methods from any thread.
class SerialQueue {
  public:
    virtual ~SerialQueue() = default;
    /// Tasks not yet begun when the program ends are dropped.
    virtual void post(std::function<void()> task) = 0;
    /// Runs the task on this queue every `seconds`, the first time one interval from now, in its
    /// turn behind the tasks that wait. At most one run waits: those missed while the queue is busy
    /// are skipped. The handle may end on any thread, in a task of the queue too, and may outlive
    /// the queue. Then no run begins any more; it does not wait for one under way on another
    /// thread, so the task must own or share what it uses.
    virtual Handle every(double seconds, std::function<void()> task) = 0;
};

/// The program's only clock and only source of later. Everything runs on the main thread, except
/// `post`, the clocks and the queues, which any thread may call.
class Scheduler {
  public:
    using Task = std::function<void()>;
    virtual ~Scheduler() = default;

    /// Seconds of the media clock: monotonic, stands still while the machine sleeps.
    virtual double uptime() const = 0;
    /// The date: seconds since 1970-01-01 UTC. May jump.
    virtual double wallClock() const = 0;

    /// Runs the task once, no sooner than `seconds` from now, unless its handle has ended.
    virtual Handle after(double seconds, Task task) = 0;
    /// Runs the task every `seconds`, the first time one interval from now, until its handle ends.
    virtual Handle every(double seconds, Task task) = 0;
    /// Runs the task on the main thread, after everything posted before it.
    virtual void post(Task task) = 0;
    /// The serial queue of that name, made on first use. Lives as long as the scheduler.
    virtual SerialQueue& queue(std::string_view name) = 0;
    virtual bool isMainThread() const = 0;
};

} // namespace larkspan
