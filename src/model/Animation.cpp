#include "model/Animation.h"

#include <utility>

namespace larkspan {

namespace {
std::optional<Animation> current;
}

std::optional<Animation> currentAnimation() {
    return current;
}

AnimationScope::AnimationScope(Animation animation)
    : outer_(std::exchange(current, animation)) {}
AnimationScope::~AnimationScope() {
    current = outer_;
}

} // namespace larkspan
