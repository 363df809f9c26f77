#pragma once

#include "model/DockItem.h"
#include "spaces/Slot.h"

#include <optional>
#include <vector>

namespace larkspan {

/// The window apps of one Space of one display.
struct DisplayGroup {
    /// Absent for a group that does not belong to one screen.
    std::optional<DisplayId> display;
    Slot slot;
    /// Whether the group's Space is not shown on its display now; it is then drawn as a ring.
    bool isRing = false;
    /// In bar order.
    std::vector<DockItem> items;

    bool operator==(const DisplayGroup&) const = default;
};

} // namespace larkspan
