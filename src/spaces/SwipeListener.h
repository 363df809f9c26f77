#pragma once

#include "platform/EventTap.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "spaces/SpaceSwipeEvent.h"
#include "spaces/SpaceSwitchLog.h"

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace larkspan {

/// Detects swipes between Spaces from the raw gestures of the trackpad, before the system reports
/// them. Main thread only; the gestures arrive on the event tap's thread and are posted.
class SwipeListener {
  public:
    using OnStep = std::function<void(const SpaceSwipeEvent&)>;

    /// Every step is stamped on `log` and passed to `onStep` on the main thread.
    SwipeListener(Scheduler& scheduler, EventTaps& taps, const WindowServer& server,
                  Screens& screens, SpaceSwitchLog& log, OnStep onStep);
    SwipeListener(const SwipeListener&) = delete;
    SwipeListener& operator=(const SwipeListener&) = delete;

    /// Returns false if the system refuses the event tap; then Space changes are known only when
    /// the system reports them. Call it once.
    bool start();

  private:
    // On the tap's thread.
    void handle(EventTap& tap, const TappedEvent& event);
    void accept(SpaceSwipeEvent step);
    std::optional<SpaceMap> readSpaces() const;

    Scheduler& scheduler_;
    EventTaps& taps_;
    const WindowServer& server_;
    SpaceSwitchLog& log_;
    OnStep onStep_;
    /// Used only on the tap's thread.
    bool isInProgress_ = false;
    mutable std::mutex screensMutex_;
    std::vector<Screen> screens_;
    Handle screenChanges_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
    /// Destroyed first: no callback runs after it.
    std::unique_ptr<EventTap> tap_;
};

} // namespace larkspan
