#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace larkspan::x11 {

/// One step of a swipe, in the units of `TapEvent`.
struct SwipeStep {
    std::int64_t phase = 0;
    std::int64_t motion = 0;
    double progress = 0;
    double velocity = 0;

    bool operator==(const SwipeStep&) const = default;
};

/// Converts a touchpad's swipe events into the steps that a Mac reports: how far across a Space the
/// fingers are, and how fast they are when they lift. Times are the X server's milliseconds.
class TouchpadSwipe {
  public:
    /// The motion of the touchpad that counts as one whole Space; the same as on other desktops.
    static constexpr double unitsPerSpace = 400;

    void begin();
    /// Nothing until the fingers move; the first motion also gives the beginning, since it decides
    /// whether the swipe is horizontal.
    std::vector<SwipeStep> move(double x, double y, std::uint32_t time);
    /// Absent if the fingers never moved.
    std::optional<SwipeStep> lift(bool isCancelled, std::uint32_t time);

  private:
    struct Sample {
        std::uint32_t time = 0;
        double progress = 0;
    };
    double velocity(std::uint32_t time) const;

    /// 0 until known.
    std::int64_t motion_ = 0;
    double progress_ = 0;
    /// The newest ones, as far back as the velocity needs.
    std::vector<Sample> samples_;
};

} // namespace larkspan::x11
