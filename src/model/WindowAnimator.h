#pragma once

#include "platform/Geometry.h"
#include "platform/Identifiers.h"
#include "platform/Workspace.h"

#include <optional>

namespace larkspan {

/// The flights of windows into their tiles and out of them, as far as clicks and grouping need to
/// know them. Without pictures of windows there is no flight to play yet: hiding and showing take
/// effect at once and no phase lasts. Main thread only.
class WindowAnimator {
  public:
    enum class Phase { none, hiding, showing, settling };
    struct Activation {
        ProcessId pid = 0;
        /// Uptime, in seconds.
        double time = 0;
        bool operator==(const Activation&) const = default;
    };

    explicit WindowAnimator(ApplicationControl& applications)
        : applications_(applications) {}

    Phase phase(ProcessId) const { return Phase::none; }
    bool hasPendingHide(ProcessId) const { return false; }
    /// Flies the app's visible windows into the frame (screen coordinates), then hides the app.
    void hide(ProcessId pid, const Rect& tileFrame);
    /// Flies the app's windows out of the frame; answers whether a flight was played.
    bool show(ProcessId pid, const Rect& tileFrame);

    /// The app that the bar activated last, and when.
    std::optional<Activation> lastActivation;

  private:
    ApplicationControl& applications_;
};

} // namespace larkspan
