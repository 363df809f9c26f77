#pragma once

namespace larkspan {

/// The Dock is fitted under at most this height of the bar, in points.
inline constexpr double tallestFit = 36;

/// An icon size in pixels, limited to 1...128, as the Dock's fraction. The Dock draws 16 to 128
/// pixels; below that the fraction is negative, which the Dock accepts.
float tileFraction(double pixels);

/// The icon size in pixels at which a Dock of that height (points) probably fits.
double firstIconSize(double height);

} // namespace larkspan
