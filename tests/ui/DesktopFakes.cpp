#include "ui/DesktopFakes.h"

#include <algorithm>
#include <cmath>

namespace larkspan::ui {

namespace {

/// Hills in evening light, as a function of the place: the same for every part that is asked for.
std::uint32_t wallpaper(double x, double y) {
    const double height = 900;
    const double sky = std::clamp(y / height, 0.0, 1.0);
    double red = 70 + 175 * sky;
    double green = 90 + 70 * sky;
    double blue = 170 - 30 * sky;
    const double far = 640 + 60 * std::sin(x / 190) + 24 * std::sin(x / 67);
    const double near = 790 + 50 * std::sin(x / 260 + 2) + 20 * std::cos(x / 90);
    if (y > far) red = 96, green = 66, blue = 128;
    if (y > near) red = 34 + 20 * std::sin(x / 300), green = 74, blue = 92;
    const auto channel = [](double value) {
        return static_cast<std::uint32_t>(std::clamp(value, 0.0, 255.0));
    };
    return 0xff000000U | channel(red) << 16 | channel(green) << 8 | channel(blue);
}

} // namespace

std::optional<Bitmap> FakeDesktop::under(const Rect& rect) const {
    if (!hasPicture) return std::nullopt;
    Bitmap bitmap{static_cast<int>(rect.width * scale), static_cast<int>(rect.height * scale), {}};
    for (int y = 0; y < bitmap.height; ++y)
        for (int x = 0; x < bitmap.width; ++x)
            bitmap.pixels.push_back(wallpaper(rect.x + x / scale, rect.y + y / scale));
    return bitmap;
}

} // namespace larkspan::ui
