#pragma once

#include "platform/DisplayLink.h"
#include "platform/Scheduler.h"

namespace larkspan::qt {

/// A timer with the main screen's refresh rate, but not synchronised with its frames.
class QtDisplayLink final : public DisplayLink {
  public:
    explicit QtDisplayLink(Scheduler& scheduler)
        : scheduler_(scheduler) {}

    Handle start(std::function<void()> frameDrawn) override;

  private:
    Scheduler& scheduler_;
};

} // namespace larkspan::qt
