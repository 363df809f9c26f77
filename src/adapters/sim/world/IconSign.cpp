#include "adapters/sim/world/IconSign.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace larkspan::sim {

namespace {

double disc(double x, double y, double centerX, double centerY, double radius) {
    return std::hypot(x - centerX, y - centerY) - radius;
}

double box(double x, double y, double halfWidth, double halfHeight, double radius) {
    const double dx = std::abs(x) - halfWidth + radius;
    const double dy = std::abs(y) - halfHeight + radius;
    return std::hypot(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0) -
           radius;
}

/// A stroke with round ends between two points.
double stroke(double x, double y, double x1, double y1, double x2, double y2, double width) {
    const double dx = x2 - x1;
    const double dy = y2 - y1;
    const double along =
        std::clamp(((x - x1) * dx + (y - y1) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
    return std::hypot(x - x1 - along * dx, y - y1 - along * dy) - width / 2;
}

double ring(double distance, double width) {
    return std::abs(distance) - width / 2;
}

double smile(double x, double y) {
    const double eyes = std::min(stroke(x, y, -0.3, -0.3, -0.3, -0.12, 0.12),
                                 stroke(x, y, 0.3, -0.3, 0.3, -0.12, 0.12));
    const double mouth = std::max(ring(disc(x, y, 0, -0.12, 0.48), 0.11), 0.2 - y);
    return std::min(eyes, mouth);
}

double compass(double x, double y) {
    // A needle that is thickest in its middle.
    const double along = (x - y) / std::sqrt(2.0);
    const double across = std::abs(x + y) / std::sqrt(2.0);
    const double needle = across - 0.15 * (1 - std::abs(along) / 0.44);
    return std::min(ring(disc(x, y, 0, 0, 0.58), 0.1), std::max(needle, std::abs(along) - 0.44));
}

double envelope(double x, double y) {
    const double flap =
        std::min(stroke(x, y, -0.5, -0.3, 0, 0.08, 0.1), stroke(x, y, 0.5, -0.3, 0, 0.08, 0.1));
    return std::max(box(x, y, 0.6, 0.42, 0.1), -flap);
}

double bubble(double x, double y) {
    const double body = std::hypot(x / 0.62, (y + 0.06) / 0.5) - 1;
    return std::min(body * 0.5, stroke(x, y, -0.3, 0.3, -0.44, 0.52, 0.18));
}

double calendar(double x, double y) {
    double dots = 1;
    for (const double row : {0.02, 0.28}) {
        for (const double column : {-0.28, 0.0, 0.28})
            dots = std::min(dots, disc(x, y, column, row, 0.085));
    }
    const double head = std::max(box(x, y, 0.54, 0.54, 0.14), y + 0.24);
    return std::min({ring(box(x, y, 0.54, 0.54, 0.14), 0.09), head, dots});
}

double lines(double x, double y) {
    return std::min({stroke(x, y, -0.46, -0.36, 0.46, -0.36, 0.13),
                     stroke(x, y, -0.46, -0.06, 0.46, -0.06, 0.13),
                     stroke(x, y, -0.46, 0.24, 0.14, 0.24, 0.13)});
}

double note(double x, double y) {
    const double heads = std::min(disc(x, y, -0.3, 0.36, 0.18), disc(x, y, 0.32, 0.26, 0.18));
    const double stems = std::min(stroke(x, y, -0.17, 0.36, -0.17, -0.42, 0.1),
                                  stroke(x, y, 0.45, 0.26, 0.45, -0.52, 0.1));
    return std::min({heads, stems, stroke(x, y, -0.17, -0.38, 0.45, -0.48, 0.18)});
}

double flower(double x, double y) {
    double petals = 1;
    for (int petal = 0; petal < 6; ++petal) {
        const double angle = petal * 3.14159265358979 / 3;
        petals = std::min(petals, disc(x, y, 0.36 * std::cos(angle), 0.36 * std::sin(angle), 0.2));
    }
    return std::max(petals, -disc(x, y, 0, 0, 0.14));
}

double prompt(double x, double y) {
    return std::min({stroke(x, y, -0.46, -0.32, -0.14, 0, 0.13),
                     stroke(x, y, -0.46, 0.32, -0.14, 0, 0.13),
                     stroke(x, y, 0.06, 0.34, 0.48, 0.34, 0.13)});
}

double pin(double x, double y) {
    const double cone = std::max({std::abs(x) - 0.34 * (0.62 - y) / 0.62, -y, y - 0.62});
    return std::max(std::min(disc(x, y, 0, -0.14, 0.4), cone), -disc(x, y, 0, -0.14, 0.16));
}

double gear(double x, double y) {
    const double angle = std::atan2(y, x);
    const double radius = 0.46 + 0.09 * std::clamp(2 * std::cos(8 * angle), -1.0, 1.0);
    return std::max(std::hypot(x, y) - radius, -disc(x, y, 0, 0, 0.2));
}

double diamonds(double x, double y) {
    return std::abs(std::abs(x) + std::abs(y) - 0.42) / std::sqrt(2.0) - 0.08;
}

struct Sign {
    std::string_view name;
    double (*distance)(double x, double y);
};

constexpr std::array signs{
    Sign{"", diamonds},       Sign{"finder", smile},    Sign{"browser", compass},
    Sign{"mail", envelope},   Sign{"messages", bubble}, Sign{"calendar", calendar},
    Sign{"notes", lines},     Sign{"music", note},      Sign{"photos", flower},
    Sign{"terminal", prompt}, Sign{"maps", pin},        Sign{"settings", gear},
};

} // namespace

const std::size_t iconSignCount = signs.size();

std::size_t iconSignFor(std::string_view name) {
    if (name.empty()) return 0;
    for (std::size_t sign = 1; sign < signs.size(); ++sign) {
        if (signs[sign].name == name) return sign;
    }
    std::size_t sum = 0;
    for (const char letter : name)
        sum = sum * 31 + static_cast<unsigned char>(letter);
    return sum % signs.size();
}

double iconSignDistance(std::size_t sign, double x, double y) {
    return signs[sign].distance(x, y);
}

} // namespace larkspan::sim
