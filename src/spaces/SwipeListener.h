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

/// Hears the swipes between Spaces, in the raw gestures of the trackpad, before the system tells of
/// them. Main thread only; the gestures come on the event tap's thread and are handed over.
class SwipeListener {
  public:
    using OnStep = std::function<void(const SpaceSwipeEvent&)>;

    /// Every step is stamped on `log` and handed to `onStep` on the main thread.
    SwipeListener(Scheduler& scheduler, EventTaps& taps, const WindowServer& server,
                  Screens& screens, SpaceSwitchLog& log, OnStep onStep);
    SwipeListener(const SwipeListener&) = delete;
    SwipeListener& operator=(const SwipeListener&) = delete;

    /// False when the system lets nobody listen; then Space changes are known only when the system
    /// tells of them. Once.
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
    /// The tap's thread alone looks at it.
    bool isInProgress_ = false;
    mutable std::mutex screensMutex_;
    std::vector<Screen> screens_;
    Handle screenChanges_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
    /// Ends first: no callback runs after it.
    std::unique_ptr<EventTap> tap_;
};

} // namespace larkspan
