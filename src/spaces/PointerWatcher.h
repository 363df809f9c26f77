#pragma once

#include "platform/EventMonitor.h"
#include "platform/Screens.h"

#include <functional>
#include <optional>
#include <vector>

namespace larkspan {

/// Knows which display the pointer is on. With a single display it watches nothing. Main thread
/// only.
class PointerWatcher {
  public:
    PointerWatcher(Screens& screens, EventMonitors& monitors);
    PointerWatcher(const PointerWatcher&) = delete;
    PointerWatcher& operator=(const PointerWatcher&) = delete;

    /// Called after the pointer moved to another display, or its display was removed. May be empty.
    std::function<void()> onDisplayChange;

    /// Absent if there is no display, or the pointer is on none.
    std::optional<DisplayId> display() const { return display_; }

  private:
    void screensChanged();
    void follow(Point pointer);

    Screens& screens_;
    EventMonitors& monitors_;
    std::vector<Screen> known_;
    std::optional<DisplayId> display_;
    Handle screenChanges_;
    /// Only with more than one display.
    Handle moves_;
};

} // namespace larkspan
