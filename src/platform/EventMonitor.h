#pragma once

#include "platform/Geometry.h"
#include "platform/Handle.h"

#include <cstdint>
#include <functional>

namespace larkspan {

/// The raw values are the platform's.
enum class InputEventType : std::uint32_t {
    leftMouseDown = 1,
    leftMouseUp = 2,
    rightMouseDown = 3,
    mouseMoved = 5,
    leftMouseDragged = 6,
    keyDown = 10,
};

/// The bits of an event's modifier flags, with the platform's values.
namespace ModifierFlag {
inline constexpr std::uint64_t shift = 1U << 17;
inline constexpr std::uint64_t control = 1U << 18;
inline constexpr std::uint64_t option = 1U << 19;
inline constexpr std::uint64_t command = 1U << 20;
} // namespace ModifierFlag

struct InputEvent {
    InputEventType type = InputEventType::mouseMoved;
    std::uint64_t modifierFlags = 0;
    /// Of the pointer, in screen coordinates.
    Point location;
};

/// The types of events that a monitor receives, one bit each.
using InputEventMask = std::uint64_t;
constexpr InputEventMask maskOf(InputEventType type) {
    return InputEventMask{1} << static_cast<std::uint32_t>(type);
}

/// Observes input to other programs, after it was sent to them, and the pointer's position. Main
/// thread only.
class EventMonitors {
  public:
    using Callback = std::function<void(const InputEvent&)>;
    virtual ~EventMonitors() = default;

    /// In screen coordinates.
    virtual Point mouseLocation() const = 0;
    /// Calls back for events of those types until the handle ends. Moves of the pointer are
    /// reported everywhere, also over this program's windows, but not every single one. A desktop
    /// may support only some types, and may need a permission for keys; others are never reported.
    virtual Handle addGlobalMonitor(InputEventMask mask, Callback callback) = 0;
};

} // namespace larkspan
