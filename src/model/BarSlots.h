#pragma once

#include "platform/Screens.h"
#include "spaces/Slot.h"
#include "spaces/SpaceMap.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace larkspan {

/// The slots that exist now, in bar order: display by display in screen order, each display's
/// Spaces in order, or the whole display as one slot where no Spaces are known.
class BarSlots {
  public:
    BarSlots(const std::vector<Screen>& screens, const std::optional<SpaceMap>& map);

    const std::vector<Slot>& inOrder() const { return slots_; }
    const std::vector<DisplayId>& displays() const { return displays_; }
    /// The slot itself while it exists; else the same Space on another display, else what is shown
    /// on its display. Absent when both have gone.
    std::optional<Slot> standInFor(const Slot& slot) const;
    /// The slot stands for what its display shows now.
    bool isShown(const Slot& slot) const;
    bool isFullScreen(const Slot& slot) const;
    /// The slot shown on the display; absent when there is no such display.
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
