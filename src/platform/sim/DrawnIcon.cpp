#include "platform/sim/DrawnIcon.h"

#include <utility>

namespace larkspan::sim {

DrawnIcon::DrawnIcon(std::string bundleIdentifier)
    : identity_("drawn:" + std::move(bundleIdentifier)) {}

Bitmap DrawnIcon::bitmap(int pixels) const {
    const auto count = static_cast<std::size_t>(pixels) * static_cast<std::size_t>(pixels);
    return {pixels, pixels, std::vector<std::uint32_t>(count, 0xFF3478F6U)};
}

} // namespace larkspan::sim
