#include "model/Grouping.h"

#include <algorithm>
#include <map>
#include <optional>

namespace larkspan {

namespace {

/// For each removed slot, the slot that replaces it, if any.
std::set<Slot> existingOf(const std::set<Slot>& wanted, const BarSlots& slots) {
    std::set<Slot> existing;
    for (const auto& slot : wanted)
        if (const auto now = slots.standInFor(slot)) existing.insert(*now);
    return existing;
}

std::optional<Slot> oneSeen(const AppPlaces& places, const BarSlots& slots) {
    const auto wasSeenIn = [&](const Slot& slot) { return places.seenSlots.contains(slot); };
    const auto wasSeenInShown = [&](const Slot& slot) {
        return wasSeenIn(slot) && slots.isShown(slot);
    };
    const auto& order = slots.inOrder();
    for (const auto found :
         {std::ranges::find_if(order, wasSeenInShown), std::ranges::find_if(order, wasSeenIn)})
        if (found != order.end()) return *found;
    for (const auto display : slots.displays())
        if (places.seenDisplays.contains(display)) return slots.shownOn(display);
    return std::nullopt;
}

} // namespace

std::set<Slot> slotsForApp(const AppPlaces& places, const BarSlots& slots) {
    for (const auto* known : {&places.slots, &places.previous})
        if (auto existing = existingOf(*known, slots); !existing.empty()) return existing;
    const bool stoodSomewhere = !places.slots.empty() || !places.previous.empty();
    if (!stoodSomewhere)
        if (const auto seen = oneSeen(places, slots)) return {*seen};
    if (slots.displays().empty()) return {};
    return {*slots.shownOn(slots.displays().front())};
}

std::vector<DisplayGroup> groupItems(const std::vector<PlacedItem>& items, const BarSlots& slots,
                                     bool showsEmptyDesktops) {
    std::map<Slot, std::vector<DockItem>> itemsOf;
    for (const auto& placed : items)
        for (const auto& slot : placed.slots)
            itemsOf[slot].push_back(placed.item);

    std::vector<DisplayGroup> groups;
    for (const auto& slot : slots.inOrder()) {
        auto found = itemsOf.find(slot);
        const bool isEmpty = found == itemsOf.end();
        if (isEmpty && (!showsEmptyDesktops || slots.isFullScreen(slot))) continue;
        groups.push_back({.display = slot.display,
                          .slot = slot,
                          .isRing = !slots.isShown(slot),
                          .items = isEmpty ? std::vector<DockItem>{} : std::move(found->second)});
    }
    return groups;
}

} // namespace larkspan
