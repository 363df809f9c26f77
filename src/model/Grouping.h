#pragma once

#include "model/BarSlots.h"
#include "model/DisplayGroup.h"
#include "model/DockItem.h"
#include "spaces/Slot.h"

#include <set>
#include <string>
#include <vector>

namespace larkspan {

/// Where an app is and where it was.
struct AppPlaces {
    /// The slots in which it has windows now.
    std::set<Slot> slots;
    /// The slots of the groups in which its tile stands until now.
    std::set<Slot> previous;
    /// The slots and displays in which it had windows at any time since it was launched.
    std::set<Slot> seenSlots;
    std::set<DisplayId> seenDisplays;
};

/// The slots in whose groups the app's tile stands; none only where there is no display.
///
/// An app stands where it has windows now. One that has none (it is hidden, or its tile is held)
/// stays in the groups it stands in. A slot that has gone gives way to what becomes of the windows
/// there: to the same Space where another display has it, else to the slot shown on the same
/// display, else to the one shown on the main display. Only an app that stands in no group goes
/// where it was seen before: to a slot that is shown now if there is one, else to the first along
/// the bar, else to the slot shown on a display where it was seen or on the main one.
std::set<Slot> slotsForApp(const AppPlaces& places, const BarSlots& slots);

/// One window app with the slots it stands in.
struct PlacedItem {
    DockItem item;
    std::set<Slot> slots;
};

/// The groups along the bars, in slot order, each with its items in the order given. Empty groups
/// are left out, except those of desktops when `showsEmptyDesktops`.
std::vector<DisplayGroup> groupItems(const std::vector<PlacedItem>& items, const BarSlots& slots,
                                     bool showsEmptyDesktops);

} // namespace larkspan
