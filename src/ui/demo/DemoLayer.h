#pragma once

namespace larkspan::ui::DemoLayer {

// What stands above what on the simulated desktop, over the windows of the apps.

inline constexpr double dock = 0;
inline constexpr double permissions = 1;
inline constexpr double bars = 2;
inline constexpr double privacy = 3;

} // namespace larkspan::ui::DemoLayer
