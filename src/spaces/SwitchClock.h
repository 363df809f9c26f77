#pragma once

#include <cstdint>
#include <mutex>
#include <optional>

namespace larkspan {

/// Measures the time within a switch timeline, and when the timeline ends. Any thread. Times are
/// the scheduler's uptime in seconds.
class SwitchClock {
  public:
    /// How long a timeline continues after the last mark that extends it.
    static constexpr double lifetime = 1.5;

    enum class Mark {
        /// Starts a timeline if none is running.
        starting,
        /// Extends a running timeline.
        ordinary,
        /// Reads only.
        passive,
    };

    struct Timeline {
        double start = 0;
        double end = 0;
    };

    struct Reading {
        /// Since the start of the timeline, rounded.
        std::int64_t milliseconds = 0;
        bool isStarted = false;
        /// Whether the previous timeline had run out and was not finished yet.
        bool endsAnother = false;
    };

    /// Absent if no timeline is running.
    std::optional<Reading> mark(Mark mark, double now);
    /// Removes a timeline that has run out; false if it is still running or there is none.
    bool finish(double now);
    /// When the timeline will run out without further marks; absent if there is none.
    std::optional<double> end() const;

  private:
    mutable std::mutex mutex_;
    std::optional<Timeline> timeline_;
};

} // namespace larkspan
