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
    /// The slots and displays in which it has windows now.
    std::set<Slot> slots;
    std::set<DisplayId> displays;
    /// The slots of the groups in which its tile stands until now.
    std::set<Slot> previous;
    /// The slots and displays in which it had windows at any time since it was launched.
    std::set<Slot> seenSlots;
    std::set<DisplayId> seenDisplays;
};

/// The slots in whose groups the app's tile stands.
///
/// An app stands where it has windows now. One that has none (it is hidden, or all its windows are
/// minimised and its tile is held) stays in the groups it stands in; if it stands in none, it goes
/// where it was seen before: to a slot that is shown now if there is one, else to the first along
/// the bar. Slots that have gone do not count; an app of which only such slots are known goes to
/// the slot shown on the same display, and to the one shown on the main display when that has gone
/// as well or nothing is known.
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
