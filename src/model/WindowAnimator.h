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

/// The flights of windows into their tiles and out of them, one for each app at most. An app is
/// hidden at the end of its flight into the tile, and shown at the end of the one out of it. Main
/// thread only.
class WindowAnimator {
  public:
    enum class Phase {
        none,
        /// Into the tile; then the app is hidden.
        hiding,
        /// Out of the tile, while the app is still hidden.
        showing,
        /// The windows are where they belong, and the pictures wait for them to be seen there.
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

    /// `none` also while a hide is pending.
    Phase phase(ProcessId pid) const;
    /// A hide was asked for whose flight has not begun.
    bool hasPendingHide(ProcessId pid) const { return pendingHides_.contains(pid); }

    /// Flies the app's visible windows into the frame (screen coordinates), then hides the app. A
    /// flight out of the tile is turned round.
    void hide(ProcessId pid, const Rect& tileFrame);
    /// Takes a hide back that has not come to its end.
    void cancelHide(ProcessId pid);
    /// Flies the app's windows out of the frame, then shows and activates the app; answers false
    /// when there was no flight to play, and then nothing was done.
    bool show(ProcessId pid, const Rect& tileFrame);

    /// The app has quit.
    void forget(ProcessId pid);
    /// The system tells that the app is no longer hidden.
    void unhidden(ProcessId pid);

    /// The bar has activated the app.
    void activated(ProcessId pid) { lastActivation_ = {pid, scheduler_.uptime()}; }
    /// The app that the bar activated last, and when.
    const std::optional<Activation>& lastActivation() const { return lastActivation_; }

  private:
    struct Flight {
        Phase phase = Phase::none;
        Rect tileFrame;
        /// The system has yet to tell of an unhiding that was asked for here.
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
    /// Which request for pictures each one waits for: those of an earlier one mean nothing.
    std::map<ProcessId, std::uint64_t> pendingHides_;
    std::uint64_t lastRequest_ = 0;
};

} // namespace larkspan
