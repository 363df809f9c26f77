#include "dock/DockIconSize.h"

#include <algorithm>
#include <cmath>

namespace larkspan {

float tileFraction(double pixels) {
    return static_cast<float>((std::clamp(pixels, 1.0, 128.0) + 0.25 - 16) / 112);
}

double firstIconSize(double height) {
    const double withWideMargins = height - 26;
    return std::floor(withWideMargins >= 48 ? withWideMargins : height - 20);
}

} // namespace larkspan
