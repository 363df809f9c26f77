#include "model/BarSlots.h"

#include <algorithm>

namespace larkspan {

BarSlots::BarSlots(const std::vector<Screen>& screens, const std::optional<SpaceMap>& map) {
    if (map) {
        shown_ = map->shown;
        fullScreen_ = map->fullScreen;
    }
    for (const auto& screen : screens) {
        displays_.push_back(screen.display);
        const auto before = slots_.size();
        if (map && map->spaces.contains(screen.display))
            for (const auto space : map->spaces.at(screen.display))
                slots_.push_back({screen.display, space});
        if (slots_.size() == before) slots_.push_back({screen.display, std::nullopt});
    }
    existing_.insert(slots_.begin(), slots_.end());
    for (const auto& slot : slots_)
        if (isShown(slot)) shownSlots_.try_emplace(slot.display, slot);
    // While a display changes, it may show none of its listed Spaces.
    for (const auto& slot : slots_)
        shownSlots_.try_emplace(slot.display, slot);
}

bool BarSlots::isShown(const Slot& slot) const {
    return !slot.space || shown_.contains(*slot.space);
}

bool BarSlots::isFullScreen(const Slot& slot) const {
    return slot.space && fullScreen_.contains(*slot.space);
}

std::optional<Slot> BarSlots::standInFor(const Slot& slot) const {
    if (existing_.contains(slot)) return slot;
    const auto hasSameSpace = [&](const Slot& other) {
        return slot.space && other.space == slot.space;
    };
    const auto moved = std::ranges::find_if(slots_, hasSameSpace);
    return moved == slots_.end() ? shownOn(slot.display) : std::optional(*moved);
}

std::optional<Slot> BarSlots::shownOn(DisplayId display) const {
    const auto found = shownSlots_.find(display);
    if (found == shownSlots_.end()) return std::nullopt;
    return found->second;
}

} // namespace larkspan
