#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace larkspan {

/// An input event as it passes a tap, with the platform's own numbers for types and fields. Valid
/// during the callback only.
class TappedEvent {
  public:
    virtual ~TappedEvent() = default;
    virtual std::uint32_t type() const = 0;
    /// 0 for a field the event does not have.
    virtual std::int64_t integerField(std::uint32_t field) const = 0;
    virtual double doubleField(std::uint32_t field) const = 0;
};

/// Event types and fields, as the platform numbers them.
namespace TapEvent {
/// A gesture of a trackpad.
inline constexpr std::uint32_t gesture = 30;
/// Not events: the system has disabled the tap, and tells so through its callback.
inline constexpr std::uint32_t disabledByTimeout = 0xFFFFFFFE;
inline constexpr std::uint32_t disabledByUserInput = 0xFFFFFFFF;

/// What a gesture is: `dockSwipe` moves between Spaces.
inline constexpr std::uint32_t gestureKind = 110;
inline constexpr std::int64_t dockSwipe = 23;
/// 1 horizontal, 2 vertical, 3 a pinch.
inline constexpr std::uint32_t swipeMotion = 123;
inline constexpr std::int64_t horizontal = 1;
/// 1 is a whole Space; greater than 0 is towards the right-hand Space.
inline constexpr std::uint32_t swipeProgress = 124;
/// Progress per second.
inline constexpr std::uint32_t swipeVelocity = 129;
/// 1 began, 2 changed, 4 ended, 8 cancelled.
inline constexpr std::uint32_t swipePhase = 132;
} // namespace TapEvent

/// A tap that listens. Its end waits for a callback that runs; none follows.
class EventTap {
  public:
    virtual ~EventTap() = default;
    /// Lets events through again after the system has disabled the tap. Any thread.
    virtual void enable() = 0;
};

/// Makes taps on the session's input events.
class EventTaps {
  public:
    /// The event is only looked at: it reaches its receiver whatever the callback does.
    using Callback = std::function<void(EventTap&, const TappedEvent&)>;
    virtual ~EventTaps() = default;

    /// Listens to the event types whose bits `mask` has (1 shifted left by the type), from now on.
    /// The callback runs on one thread, the tap's own where the platform gives it one. Nullptr when
    /// the system refuses. Main thread only.
    virtual std::unique_ptr<EventTap> listen(std::uint64_t mask, Callback callback) = 0;
};

} // namespace larkspan
