#pragma once

#include "platform/DisplayLink.h"
#include "platform/Scheduler.h"

namespace larkspan::qt {

/// A timer that beats as often as the main screen draws: not bound to the moments at which it does.
class QtDisplayLink final : public DisplayLink {
  public:
    explicit QtDisplayLink(Scheduler& scheduler)
        : scheduler_(scheduler) {}

    Handle start(std::function<void()> frameDrawn) override;

  private:
    Scheduler& scheduler_;
};

} // namespace larkspan::qt
