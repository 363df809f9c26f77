#pragma once

#include <cstddef>
#include <string_view>

namespace larkspan::sim {

/// How many signs there are.
extern const std::size_t iconSignCount;

/// The sign that suits an app's name; any other name gets one derived from it.
std::size_t iconSignFor(std::string_view name);

/// The distance of a point from the sign's outline, negative inside. The icon is the square from
/// -1, -1 (top left) to 1, 1.
double iconSignDistance(std::size_t sign, double x, double y);

} // namespace larkspan::sim
