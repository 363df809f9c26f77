#pragma once

#include <optional>

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

/// The animation of the change being made now, if any. Main thread only.
std::optional<Animation> currentAnimation();

/// Changes made while `body` runs are animated by the spring.
template <typename Body>
void withAnimation(Animation animation, Body&& body);

/// The scope behind `withAnimation`.
class AnimationScope {
  public:
    explicit AnimationScope(Animation animation);
    ~AnimationScope();
    AnimationScope(const AnimationScope&) = delete;
    AnimationScope& operator=(const AnimationScope&) = delete;

  private:
    std::optional<Animation> outer_;
};

template <typename Body>
void withAnimation(Animation animation, Body&& body) {
    const AnimationScope scope(animation);
    body();
}

} // namespace larkspan
