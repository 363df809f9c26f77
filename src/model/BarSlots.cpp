#include "model/BarSlots.h"

namespace larkspan {

BarSlots::BarSlots(const std::vector<Screen>& screens, const std::optional<SpaceMap>& map) {
    if (map) {
        shown_ = map->shown;
        fullScreen_ = map->fullScreen;
    }
    for (const auto& screen : screens) {
        displays_.push_back(screen.display);
        if (map && map->spaces.contains(screen.display)) {
            for (const auto space : map->spaces.at(screen.display))
                slots_.push_back({screen.display, space});
        } else {
            slots_.push_back({screen.display, std::nullopt});
        }
    }
    existing_.insert(slots_.begin(), slots_.end());
    for (const auto& slot : slots_)
        if (isShown(slot)) shownSlots_.try_emplace(slot.display, slot);
    // A display in the middle of a change may show none of the Spaces it is said to have.
    for (const auto& slot : slots_)
        shownSlots_.try_emplace(slot.display, slot);
}

bool BarSlots::isShown(const Slot& slot) const {
    return !slot.space || shown_.contains(*slot.space);
}

bool BarSlots::isFullScreen(const Slot& slot) const {
    return slot.space && fullScreen_.contains(*slot.space);
}

std::optional<Slot> BarSlots::shownOn(DisplayId display) const {
    const auto found = shownSlots_.find(display);
    if (found == shownSlots_.end()) return std::nullopt;
    return found->second;
}

} // namespace larkspan
