#pragma once

namespace larkspan {

/// A spring that is passed along with a change of the model, for the views to animate it.
/// `response` is the duration of one free oscillation in seconds, `damping` the fraction of
/// critical damping.
struct Animation {
    double response = 0;
    double damping = 1;
    bool operator==(const Animation&) const = default;
};

inline constexpr Animation windowReadAnimation{0.35, 0.88};
inline constexpr Animation pinnedListAnimation{0.5, 0.85};

} // namespace larkspan
