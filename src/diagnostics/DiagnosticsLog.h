#pragma once

#include "platform/Scheduler.h"
#include "platform/Signal.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace larkspan {

/// The application's decisions and timings, as fixed sentences with a category word. Keeps the
/// newest lines in memory. Main thread only.
class DiagnosticsLog {
  public:
    struct Line {
        /// Seconds since 1970-01-01 UTC.
        double time = 0;
        std::string category;
        std::string text;
    };
    static constexpr std::size_t capacity = 10'000;

    explicit DiagnosticsLog(const Scheduler& scheduler)
        : scheduler_(scheduler) {}

    void write(std::string_view category, std::string text);
    const std::deque<Line>& lines() const { return lines_; }
    /// The time that a line written now gets.
    double now() const { return scheduler_.wallClock(); }

    /// Calls back with every further line, until the handle ends.
    Handle subscribe(std::function<void(const Line&)> follower) {
        return written_.subscribe(std::move(follower));
    }

  private:
    const Scheduler& scheduler_;
    std::deque<Line> lines_;
    Signal<const Line&> written_;
};

} // namespace larkspan
