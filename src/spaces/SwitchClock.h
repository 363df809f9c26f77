#pragma once

#include <cstdint>
#include <mutex>
#include <optional>

namespace larkspan {

/// Tells how far into a switch timeline a moment lies, and when the timeline has run out. Any
/// thread. Times are the scheduler's uptime in seconds.
class SwitchClock {
  public:
    /// How long a timeline runs on after the last mark that keeps it running.
    static constexpr double lifetime = 1.5;

    enum class Mark {
        /// Opens a timeline when none runs.
        starting,
        /// Keeps a running timeline running.
        ordinary,
        /// Reads only.
        passive,
    };

    struct Timeline {
        double start = 0;
        double end = 0;
    };

    struct Reading {
        /// Rounded, since the timeline's start.
        std::int64_t milliseconds = 0;
        bool isStarted = false;
        /// The timeline before this one had run out and was not finished yet.
        bool endsAnother = false;
    };

    /// Absent when no timeline runs.
    std::optional<Reading> mark(Mark mark, double now);
    /// Forgets a timeline that has run out; false when it still runs or there was none.
    bool finish(double now);
    /// When the timeline will have run out as things stand; absent when there is none.
    std::optional<double> end() const;

  private:
    mutable std::mutex mutex_;
    std::optional<Timeline> timeline_;
};

} // namespace larkspan
