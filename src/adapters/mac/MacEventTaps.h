#pragma once

#include "platform/EventTap.h"

namespace larkspan::mac {

/// Event taps of the session, each on its own thread. Events that reveal what is typed need a
/// permission; gestures do not.
class MacEventTaps final : public EventTaps {
  public:
    std::unique_ptr<EventTap> listen(std::uint64_t mask, Callback callback) override;
};

} // namespace larkspan::mac
