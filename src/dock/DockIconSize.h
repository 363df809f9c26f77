#pragma once

namespace larkspan {

/// The Dock is fitted under at most this much of the bar, in points.
inline constexpr double tallestFit = 36;

/// An icon size in pixels, held to 1...128, as the Dock's fraction. The Dock itself draws 16 to 128
/// pixels; below that the fraction is negative, and the Dock takes it.
float tileFraction(double pixels);

/// The icon size in pixels with which a Dock of that height (points) is likely to fit.
double firstIconSize(double height);

} // namespace larkspan
