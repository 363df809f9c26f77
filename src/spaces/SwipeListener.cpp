#include "spaces/SwipeListener.h"

#include "spaces/SpaceMapReader.h"

#include <fmt/format.h>

#include <utility>

namespace larkspan {
namespace {

using Phase = SpaceSwipeEvent::Phase;

constexpr const char* kind = "swipe";

bool isHorizontalDockSwipe(const TappedEvent& event) {
    return event.type() == TapEvent::gesture &&
           event.integerField(TapEvent::gestureKind) == TapEvent::dockSwipe &&
           event.integerField(TapEvent::swipeMotion) == TapEvent::horizontal;
}

std::optional<Phase> phaseOf(std::int64_t raw) {
    switch (raw) {
    case 1:
        return Phase::began;
    case 2:
        return Phase::changed;
    case 4:
        return Phase::ended;
    case 8:
        return Phase::cancelled;
    default:
        return std::nullopt;
    }
}

const char* nameOf(Phase phase) {
    constexpr const char* names[] = {"began", "changed", "ended", "cancelled"};
    return names[static_cast<std::size_t>(phase)];
}

std::string describe(const SpaceSwipeEvent& step) {
    auto text = fmt::format("{} progress {:.4f}", nameOf(step.phase), step.progress);
    if (step.phase == Phase::ended) text += fmt::format(", {:.2f} per second", step.velocity);
    return text;
}

} // namespace

SwipeListener::SwipeListener(Scheduler& scheduler, EventTaps& taps, const WindowServer& server,
                             Screens& screens, SpaceSwitchLog& log, OnStep onStep)
    : scheduler_(scheduler)
    , taps_(taps)
    , server_(server)
    , log_(log)
    , onStep_(std::move(onStep))
    , screens_(screens.screens())
    , screenChanges_(screens.subscribe([this, &screens] {
        auto now = screens.screens();
        const std::lock_guard lock(screensMutex_);
        screens_ = std::move(now);
    })) {}

bool SwipeListener::start() {
    tap_ = taps_.listen(std::uint64_t{1} << TapEvent::gesture,
                        [this](EventTap& tap, const TappedEvent& event) { handle(tap, event); });
    if (!tap_) log_.stampError(kind, "could not listen for swipes");
    return tap_ != nullptr;
}

void SwipeListener::handle(EventTap& tap, const TappedEvent& event) {
    if (event.type() == TapEvent::disabledByTimeout ||
        event.type() == TapEvent::disabledByUserInput) {
        tap.enable();
        return;
    }
    if (!isHorizontalDockSwipe(event)) return;
    const auto phase = phaseOf(event.integerField(TapEvent::swipePhase));
    if (!phase || (*phase != Phase::began && !isInProgress_)) return;
    isInProgress_ = *phase == Phase::began || *phase == Phase::changed;

    SpaceSwipeEvent step{.phase = *phase, .progress = event.doubleField(TapEvent::swipeProgress)};
    if (*phase == Phase::ended) step.velocity = event.doubleField(TapEvent::swipeVelocity);
    if (*phase == Phase::began) step.spaces = readSpaces();
    accept(std::move(step));
}

void SwipeListener::accept(SpaceSwipeEvent step) {
    using Mark = SpaceSwitchLog::Mark;
    log_.stamp(kind, describe(step), step.phase == Phase::began ? Mark::starting : Mark::ordinary);
    scheduler_.post([this, step = std::move(step), alive = std::weak_ptr(alive_)] {
        if (!alive.expired()) onStep_(step);
    });
}

std::optional<SpaceMap> SwipeListener::readSpaces() const {
    const auto displays = server_.managedDisplaySpaces();
    if (!displays) return std::nullopt;
    const auto screens = [this] {
        const std::lock_guard lock(screensMutex_);
        return screens_;
    }();
    return readSpaceMap(server_, *displays, screens);
}

} // namespace larkspan
