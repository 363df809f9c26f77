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

/// Bits of an event's modifier flags, as the platform numbers them.
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

/// The bits of several types together say what a monitor hears.
using InputEventMask = std::uint64_t;
constexpr InputEventMask maskOf(InputEventType type) {
    return InputEventMask{1} << static_cast<std::uint32_t>(type);
}

/// Hears of input that goes to other programs, after it was sent there, and knows where the pointer
/// is. Main thread only.
class EventMonitors {
  public:
    using Callback = std::function<void(const InputEvent&)>;
    virtual ~EventMonitors() = default;

    /// In screen coordinates.
    virtual Point mouseLocation() const = 0;
    /// Tells the callback of events of those types until the handle ends. Moves of the pointer are
    /// told wherever it is, over this program's windows too, but not each one. A desktop may hear
    /// some types only, and may need a permission for keys: the others are never told.
    virtual Handle addGlobalMonitor(InputEventMask mask, Callback callback) = 0;
};

} // namespace larkspan
