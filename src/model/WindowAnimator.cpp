#include "model/WindowAnimator.h"

#include <utility>

namespace larkspan {

namespace {

/// The seconds that the pictures wait at most for an app to be shown.
constexpr double settleLimit = 0.5;

} // namespace

WindowAnimator::Phase WindowAnimator::phase(ProcessId pid) const {
    const auto found = inFlight_.find(pid);
    return found == inFlight_.end() ? Phase::none : found->second.phase;
}

void WindowAnimator::hide(ProcessId pid, const Rect& tileFrame) {
    if (inFlight_.contains(pid)) {
        // Its pictures are already in the air.
        beginHide(pid, tileFrame);
        return;
    }
    const auto request = ++lastRequest_;
    pendingHides_[pid] = request;
    flights_.takePictures(pid, [this, pid, request, tileFrame] {
        const auto pending = pendingHides_.find(pid);
        if (pending != pendingHides_.end() && pending->second == request) beginHide(pid, tileFrame);
    });
}

void WindowAnimator::beginHide(ProcessId pid, const Rect& tileFrame) {
    pendingHides_.erase(pid);
    const double seconds = flights_.fly(pid, tileFrame, WindowFlights::Direction::intoTile);
    if (seconds <= 0) {
        finishHide(pid);
        return;
    }
    follow(pid, Phase::hiding, seconds, [this, pid] { finishHide(pid); }).tileFrame = tileFrame;
}

void WindowAnimator::finishHide(ProcessId pid) {
    applications_.hide(pid);
    end(pid);
}

void WindowAnimator::cancelHide(ProcessId pid) {
    pendingHides_.erase(pid);
    const auto found = inFlight_.find(pid);
    if (found == inFlight_.end() || found->second.phase != Phase::hiding) return;
    const double seconds =
        flights_.fly(pid, found->second.tileFrame, WindowFlights::Direction::outOfTile);
    if (seconds <= 0)
        end(pid);
    else
        // The app was never hidden: its windows are behind the pictures.
        follow(pid, Phase::settling, seconds, [this, pid] { end(pid); });
}

bool WindowAnimator::show(ProcessId pid, const Rect& tileFrame) {
    const double seconds = flights_.fly(pid, tileFrame, WindowFlights::Direction::outOfTile);
    if (seconds <= 0) return false;
    pendingHides_.erase(pid);
    follow(pid, Phase::showing, seconds, [this, pid] { finishShow(pid); });
    return true;
}

void WindowAnimator::finishShow(ProcessId pid) {
    follow(pid, Phase::settling, settleLimit, [this, pid] { end(pid); }).expectsUnhide = true;
    activated(pid);
    applications_.unhide(pid);
    applications_.activate(pid);
}

void WindowAnimator::forget(ProcessId pid) {
    pendingHides_.erase(pid);
    end(pid);
}

void WindowAnimator::unhidden(ProcessId pid) {
    const auto found = inFlight_.find(pid);
    const bool isOurs =
        found != inFlight_.end() && std::exchange(found->second.expectsUnhide, false);
    // A late notification for our request does not end a hide that the user requested since.
    if (isOurs && found->second.phase == Phase::hiding) return;
    forget(pid);
}

/// Starts the phase, which ends after that many seconds.
WindowAnimator::Flight& WindowAnimator::follow(ProcessId pid, Phase phase, double seconds,
                                               std::function<void()> end) {
    auto& flight = inFlight_[pid];
    flight.phase = phase;
    flight.end = scheduler_.after(seconds, std::move(end));
    return flight;
}

void WindowAnimator::end(ProcessId pid) {
    if (inFlight_.erase(pid) > 0) flights_.land(pid);
}

} // namespace larkspan
