#pragma once

#include "platform/Handle.h"

#include <functional>

namespace larkspan {

/// The displays' refresh cycle. Main thread only.
class DisplayLink {
  public:
    virtual ~DisplayLink() = default;
    /// Calls back once for each drawn frame until the handle ends.
    virtual Handle start(std::function<void()> frameDrawn) = 0;
};

} // namespace larkspan
