#pragma once

#include "model/WindowFlights.h"
#include "platform/ApplicationControl.h"
#include "platform/Geometry.h"
#include "platform/Identifiers.h"
#include "platform/Scheduler.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>

namespace larkspan {

/// The flights of windows into their tiles and out of them, at most one for each app. An app is
/// hidden at the end of its flight into the tile, and shown at the end of the one out of it. Main
/// thread only.
class WindowAnimator {
  public:
    enum class Phase {
        none,
        /// Into the tile; the app is hidden afterwards.
        hiding,
        /// Out of the tile, while the app is still hidden.
        showing,
        /// The windows are in place, and the pictures wait until they are visible.
        settling
    };
    struct Activation {
        ProcessId pid = 0;
        /// Uptime, in seconds.
        double time = 0;
        bool operator==(const Activation&) const = default;
    };

    WindowAnimator(Scheduler& scheduler, ApplicationControl& applications, WindowFlights& flights)
        : scheduler_(scheduler)
        , applications_(applications)
        , flights_(flights) {}

    /// Also `none` while a hide is pending.
    Phase phase(ProcessId pid) const;
    /// Whether a hide was requested whose flight has not begun.
    bool hasPendingHide(ProcessId pid) const { return pendingHides_.contains(pid); }

    /// Flies the app's visible windows into the frame (screen coordinates), then hides the app. A
    /// flight out of the tile is reversed.
    void hide(ProcessId pid, const Rect& tileFrame);
    /// Cancels a hide that has not finished.
    void cancelHide(ProcessId pid);
    /// Flies the app's windows out of the frame, then shows and activates the app. Returns false,
    /// and does nothing, if there is no flight to play.
    bool show(ProcessId pid, const Rect& tileFrame);

    /// The app has quit.
    void forget(ProcessId pid);
    /// The system reports that the app is not hidden any more.
    void unhidden(ProcessId pid);

    /// The bar has activated the app.
    void activated(ProcessId pid) { lastActivation_ = {pid, scheduler_.uptime()}; }
    /// The app that the bar activated last, and when.
    const std::optional<Activation>& lastActivation() const { return lastActivation_; }

  private:
    struct Flight {
        Phase phase = Phase::none;
        Rect tileFrame;
        /// Whether the system has yet to report an unhide that was requested here.
        bool expectsUnhide = false;
        Handle end;
    };

    void beginHide(ProcessId pid, const Rect& tileFrame);
    void finishHide(ProcessId pid);
    void finishShow(ProcessId pid);
    Flight& follow(ProcessId pid, Phase phase, double seconds, std::function<void()> end);
    void end(ProcessId pid);

    Scheduler& scheduler_;
    ApplicationControl& applications_;
    WindowFlights& flights_;
    std::optional<Activation> lastActivation_;
    std::map<ProcessId, Flight> inFlight_;
    /// The request for pictures that each one waits for; pictures of an earlier request are
    /// ignored.
    std::map<ProcessId, std::uint64_t> pendingHides_;
    std::uint64_t lastRequest_ = 0;
};

} // namespace larkspan
