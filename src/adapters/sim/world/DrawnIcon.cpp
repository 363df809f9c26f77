#include "adapters/sim/world/DrawnIcon.h"

#include "adapters/sim/world/IconSign.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace larkspan::sim {

namespace {

struct Color {
    double red, green, blue;
};

Color mix(const Color& a, const Color& b, double part) {
    return {a.red + (b.red - a.red) * part, a.green + (b.green - a.green) * part,
            a.blue + (b.blue - a.blue) * part};
}

Color fromHue(double hue, double saturation, double value) {
    const auto channel = [&](double offset) {
        const double k = std::fmod(offset + hue / 60, 6.0);
        return value - value * saturation * std::max(0.0, std::min({k, 4 - k, 1.0}));
    };
    return {channel(5), channel(3), channel(1)};
}

/// How much of a pixel is inside, from the distance of its centre.
double coverage(double distance, double pixel) {
    return std::clamp(0.5 - distance / pixel, 0.0, 1.0);
}

/// A square with smooth corners: |x|^5 + |y|^5 = 1. Approximates the distance.
double tile(double x, double y) {
    constexpr double half = 0.86;
    const double radius = std::pow(std::pow(std::abs(x), 5) + std::pow(std::abs(y), 5), 0.2);
    return radius - half;
}

std::uint32_t premultiplied(const Color& color, double alpha) {
    const auto byte = [alpha](double channel) {
        return static_cast<std::uint32_t>(std::lround(std::clamp(channel, 0.0, 1.0) * alpha * 255));
    };
    const auto opacity = static_cast<std::uint32_t>(std::lround(alpha * 255));
    return opacity << 24 | byte(color.red) << 16 | byte(color.green) << 8 | byte(color.blue);
}

} // namespace

DrawnIcon::DrawnIcon(const std::string& bundleIdentifier)
    : identity_("drawn:" + bundleIdentifier) {
    const std::string name = bundleIdentifier.substr(bundleIdentifier.rfind('.') + 1);
    sign_ = iconSignFor(name);
    // In the order of the signs: grey for the generic icon, then distinguishable colours.
    constexpr std::array<double, 12> hues{220, 212, 200, 222, 134, 4, 44, 342, 288, 225, 152, 215};
    constexpr std::array<double, 12> saturations{0.12, 0.8,  0.85, 0.75, 0.75, 0.72,
                                                 0.8,  0.75, 0.62, 0.45, 0.7,  0.16};
    hue_ = hues[sign_ % hues.size()];
    saturation_ = saturations[sign_ % saturations.size()];
}

Bitmap DrawnIcon::bitmap(int pixels) const {
    if (pixels < 1) return {};
    const auto count = static_cast<std::size_t>(pixels) * static_cast<std::size_t>(pixels);
    Bitmap bitmap{pixels, pixels, std::vector<std::uint32_t>(count)};
    const double pixel = 2.0 / pixels;
    const Color top = fromHue(hue_ + 352, saturation_ * 0.72, 1.0);
    const Color bottom = fromHue(hue_ + 366, saturation_, 0.78);
    std::size_t at = 0;
    for (int row = 0; row < pixels; ++row) {
        const double y = (row + 0.5) * pixel - 1;
        for (int column = 0; column < pixels; ++column, ++at) {
            const double x = (column + 0.5) * pixel - 1;
            const double edge = tile(x, y);
            const double inside = coverage(edge, pixel);
            // A soft shadow below the tile.
            const double shadow =
                0.26 * std::clamp(1 - (tile(x, y - 0.035) + 0.02) / 0.1, 0.0, 1.0);
            Color color = mix(top, bottom, std::clamp((y + 0.86) / 1.72, 0.0, 1.0));
            // A highlight along the upper edge.
            const double rim = std::clamp(1 + edge / 0.05, 0.0, 1.0) * std::max(0.0, 0.3 - 0.6 * y);
            color = mix(color, {1, 1, 1}, 0.5 * rim);
            const double below = coverage(iconSignDistance(sign_, x, y - 0.035), 0.09);
            color = mix(color, mix(bottom, {0, 0, 0}, 0.5), 0.3 * below);
            color = mix(color, {1, 1, 1}, 0.97 * coverage(iconSignDistance(sign_, x, y), pixel));
            const double alpha = inside + shadow * (1 - inside);
            const Color shown = alpha > 0 ? mix({0, 0, 0.1}, color, inside / alpha) : color;
            bitmap.pixels[at] = premultiplied(shown, alpha);
        }
    }
    return bitmap;
}

} // namespace larkspan::sim
