#include "model/Grouping.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>

namespace larkspan {

namespace {

std::set<Slot> existingOf(const std::set<Slot>& wanted, const BarSlots& slots) {
    std::set<Slot> existing;
    for (const auto& slot : wanted)
        if (slots.has(slot)) existing.insert(slot);
    return existing;
}

std::optional<Slot> oneSeen(const std::set<Slot>& seen, const BarSlots& slots) {
    const auto existing = existingOf(seen, slots);
    if (existing.empty()) return std::nullopt;
    const auto isCandidate = [&](const Slot& slot) { return existing.contains(slot); };
    const auto isShownCandidate = [&](const Slot& slot) {
        return isCandidate(slot) && slots.isShown(slot);
    };
    const auto& order = slots.inOrder();
    const auto shown = std::ranges::find_if(order, isShownCandidate);
    return shown != order.end() ? *shown : *std::ranges::find_if(order, isCandidate);
}

std::set<DisplayId> displaysOf(const std::set<Slot>& slots) {
    std::set<DisplayId> displays;
    for (const auto& slot : slots)
        displays.insert(slot.display);
    return displays;
}

/// The slot shown on the display the app was last known to be on, else on the main one.
std::optional<Slot> shownSlotFor(const AppPlaces& places, const BarSlots& slots) {
    const std::array known{places.displays, displaysOf(places.slots), displaysOf(places.previous),
                           displaysOf(places.seenSlots), places.seenDisplays};
    for (const auto& wanted : known)
        for (const auto display : slots.displays())
            if (wanted.contains(display)) return slots.shownOn(display);
    if (slots.displays().empty()) return std::nullopt;
    return slots.shownOn(slots.displays().front());
}

} // namespace

std::set<Slot> slotsForApp(const AppPlaces& places, const BarSlots& slots) {
    if (auto now = existingOf(places.slots, slots); !now.empty()) return now;
    if (auto previous = existingOf(places.previous, slots); !previous.empty()) return previous;
    if (const auto seen = oneSeen(places.seenSlots, slots)) return {*seen};
    if (const auto shown = shownSlotFor(places, slots)) return {*shown};
    return {};
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
