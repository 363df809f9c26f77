#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace larkspan::x11 {

/// One step of a swipe, in the numbers of `TapEvent`.
struct SwipeStep {
    std::int64_t phase = 0;
    std::int64_t motion = 0;
    double progress = 0;
    double velocity = 0;

    bool operator==(const SwipeStep&) const = default;
};

/// Adds up what a touchpad tells of fingers that move together into the steps a Mac tells of: how
/// far across a Space they are, and how fast when they lift. Times are the X server's milliseconds.
class TouchpadSwipe {
  public:
    /// Motion of the touchpad that stands for a whole Space; that of other desktops.
    static constexpr double unitsPerSpace = 400;

    void begin();
    /// None until the fingers move; then the beginning comes with the first motion, which says
    /// whether the swipe is horizontal.
    std::vector<SwipeStep> move(double x, double y, std::uint32_t time);
    /// Absent for fingers that never moved.
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
    /// The newest, as far back as the speed is taken from.
    std::vector<Sample> samples_;
};

} // namespace larkspan::x11
