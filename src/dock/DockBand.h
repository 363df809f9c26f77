#pragma once

#include "platform/CoreDock.h"
#include "platform/Geometry.h"
#include "platform/Screens.h"

#include <optional>
#include <string_view>
#include <vector>

namespace larkspan {

/// The strip at the bottom of a screen that windows leave free, where the bar is. Main thread only.
struct DockBand {
    Screen screen;
    /// Screen coordinates.
    Rect frame;

    bool operator==(const DockBand&) const = default;

    /// The strips in the screens' order; a screen without one is omitted.
    static std::vector<DockBand> bands(const Screens& screens);

    /// Why no screen has a strip, as a sentence for the user; absent if the Dock should reserve
    /// one.
    static std::optional<std::string_view> whyNoBand(const CoreDock& dock);
};

} // namespace larkspan
