#pragma once

#include "platform/EventTap.h"

namespace larkspan::x11 {

/// An X server lets nobody listen to everyone's input events: there are no taps.
class X11EventTaps final : public EventTaps {
  public:
    std::unique_ptr<EventTap> listen(std::uint64_t, Callback) override { return nullptr; }
};

} // namespace larkspan::x11
