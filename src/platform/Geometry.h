#pragma once

#include <algorithm>

namespace larkspan {

// All lengths are points. Two coordinate systems are in use, as on the Mac: *screen coordinates*
// have their origin at the bottom left of the main screen with y upwards (screens, bars, the
// pointer); *display coordinates* have it at the top left with y downwards (windows,
// Accessibility).

struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;
    bool operator==(const Size&) const = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double minX() const { return x; }
    double minY() const { return y; }
    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    double area() const { return width * height; }
    bool isEmpty() const { return width <= 0 || height <= 0; }
    bool contains(Point point) const {
        return point.x >= minX() && point.x < maxX() && point.y >= minY() && point.y < maxY();
    }
    bool operator==(const Rect&) const = default;
};

/// The intersection of two rectangles; an empty rectangle if they only touch or do not meet.
inline Rect intersection(const Rect& a, const Rect& b) {
    const double x = std::max(a.minX(), b.minX());
    const double y = std::max(a.minY(), b.minY());
    const double right = std::min(a.maxX(), b.maxX());
    const double top = std::min(a.maxY(), b.maxY());
    if (right <= x || top <= y) return {};
    return {x, y, right - x, top - y};
}

} // namespace larkspan
