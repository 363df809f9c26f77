#pragma once

#include "model/DockItem.h"
#include "spaces/Slot.h"

#include <optional>
#include <vector>

namespace larkspan {

/// The window apps of one Space of one display.
struct DisplayGroup {
    /// Absent for a group that is not tied to one screen.
    std::optional<DisplayId> display;
    Slot slot;
    /// Drawn as a ring rather than as a plain run: the group's Space is not the one its display
    /// shows.
    bool isRing = false;
    /// In bar order.
    std::vector<DockItem> items;

    bool operator==(const DisplayGroup&) const = default;
};

} // namespace larkspan
