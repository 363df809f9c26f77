#pragma once

#include "model/BarSlots.h"
#include "model/DisplayGroup.h"
#include "model/DockItem.h"
#include "spaces/Slot.h"

#include <set>
#include <string>
#include <vector>

namespace larkspan {

/// The current and earlier places of an app.
struct AppPlaces {
    /// The slots in which it has windows now.
    std::set<Slot> slots;
    /// The slots of the groups that its tile has been in until now.
    std::set<Slot> previous;
    /// The slots and displays in which it had windows at any time since it was launched.
    std::set<Slot> seenSlots;
    std::set<DisplayId> seenDisplays;
};

/// The slots in whose groups the app's tile appears; none only if there is no display. An app
/// appears where it has windows now. One without windows (it is hidden, or its tile is held) stays
/// in its groups. A removed slot is replaced by the slot where its windows go: the same Space if
/// another display has it, else the slot shown on the same display, else the one shown on the main
/// display. Only an app that is in no group goes where it was seen before: to a slot that is shown
/// now if there is one, else to the first along the bar, else to the slot shown on a display where
/// it was seen, or on the main one.
std::set<Slot> slotsForApp(const AppPlaces& places, const BarSlots& slots);

/// One window app with its slots.
struct PlacedItem {
    DockItem item;
    std::set<Slot> slots;
};

/// The groups along the bars, in slot order, each with its items in the given order. Empty groups
/// are omitted, except those of desktops if `showsEmptyDesktops`.
std::vector<DisplayGroup> groupItems(const std::vector<PlacedItem>& items, const BarSlots& slots,
                                     bool showsEmptyDesktops);

} // namespace larkspan
