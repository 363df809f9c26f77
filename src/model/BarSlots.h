#pragma once

#include "platform/Screens.h"
#include "spaces/Slot.h"
#include "spaces/SpaceMap.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace larkspan {

/// The existing slots in bar order: display by display in screen order, each display's Spaces in
/// order, or the whole display as one slot if no Spaces are known.
class BarSlots {
  public:
    BarSlots(const std::vector<Screen>& screens, const std::optional<SpaceMap>& map);

    const std::vector<Slot>& inOrder() const { return slots_; }
    const std::vector<DisplayId>& displays() const { return displays_; }
    /// The slot itself if it exists; else the same Space on another display, else the slot shown on
    /// its display. Absent if both are gone.
    std::optional<Slot> standInFor(const Slot& slot) const;
    /// Whether the slot is shown on its display now.
    bool isShown(const Slot& slot) const;
    bool isFullScreen(const Slot& slot) const;
    /// The slot shown on the display; absent if there is no such display.
    std::optional<Slot> shownOn(DisplayId display) const;

  private:
    std::vector<DisplayId> displays_;
    std::vector<Slot> slots_;
    std::set<Slot> existing_;
    std::set<SpaceId> shown_;
    std::set<SpaceId> fullScreen_;
    std::map<DisplayId, Slot> shownSlots_;
};

} // namespace larkspan
