#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "platform/EventTap.h"

namespace larkspan::x11 {

/// Touchpad gestures, which X servers report since XInput 2.4, and no other events. They are
/// selected on the root window and never grabbed: a window under the pointer that wants them, and a
/// program that grabs them, come first. Callbacks run on the main thread.
class X11EventTaps final : public EventTaps {
  public:
    explicit X11EventTaps(X11Connection& connection)
        : connection_(connection) {}

    /// Returns nullptr if the server does not support gestures, if another program has selected
    /// those of the root window, or while an earlier tap exists.
    std::unique_ptr<EventTap> listen(std::uint64_t mask, Callback callback) override;

  private:
    X11Connection& connection_;
    bool isListening_ = false;
};

} // namespace larkspan::x11
