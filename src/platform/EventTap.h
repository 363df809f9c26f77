#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace larkspan {

/// An input event in a tap, with the platform's own numbers for types and fields. Valid only during
/// the callback.
class TappedEvent {
  public:
    virtual ~TappedEvent() = default;
    virtual std::uint32_t type() const = 0;
    /// 0 for a field the event does not have.
    virtual std::int64_t integerField(std::uint32_t field) const = 0;
    virtual double doubleField(std::uint32_t field) const = 0;
};

/// Event types and fields, with the platform's values.
namespace TapEvent {
/// A gesture of a trackpad.
inline constexpr std::uint32_t gesture = 30;
/// Not events: the system has disabled the tap, and notifies it through its callback.
inline constexpr std::uint32_t disabledByTimeout = 0xFFFFFFFE;
inline constexpr std::uint32_t disabledByUserInput = 0xFFFFFFFF;

/// The kind of a gesture: `dockSwipe` moves between Spaces.
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

/// A listening tap. Destroying it waits for a running callback; there are no calls after that.
class EventTap {
  public:
    virtual ~EventTap() = default;
    /// Enables the tap again after the system has disabled it. Any thread.
    virtual void enable() = 0;
};

/// Creates taps of the session's input events.
class EventTaps {
  public:
    /// Observes only: the event reaches its receiver whatever the callback does.
    using Callback = std::function<void(EventTap&, const TappedEvent&)>;
    virtual ~EventTaps() = default;

    /// Listens from now on to the event types whose bits are set in `mask` (1 shifted left by the
    /// type). The callback runs on one thread, the tap's own if the platform provides one. Returns
    /// nullptr if the system refuses. Main thread only.
    virtual std::unique_ptr<EventTap> listen(std::uint64_t mask, Callback callback) = 0;
};

} // namespace larkspan
