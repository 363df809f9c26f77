#pragma once

#include "platform/EventTap.h"

namespace larkspan::mac {

/// Taps of the session's events, each on a thread of its own. Events that tell what is typed need a
/// permission; gestures do not.
class MacEventTaps final : public EventTaps {
  public:
    std::unique_ptr<EventTap> listen(std::uint64_t mask, Callback callback) override;
};

} // namespace larkspan::mac
