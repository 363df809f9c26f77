#pragma once

namespace larkspan {

/// A spring that travels with a change of the model, so that the views know how to move. `response`
/// is the seconds of one free swing, `damping` the fraction of critical damping.
struct Animation {
    double response = 0;
    double damping = 1;
    bool operator==(const Animation&) const = default;
};

inline constexpr Animation windowReadAnimation{0.35, 0.88};
inline constexpr Animation pinnedListAnimation{0.5, 0.85};

} // namespace larkspan
