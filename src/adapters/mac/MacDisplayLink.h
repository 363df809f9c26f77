#pragma once

#include "platform/DisplayLink.h"

namespace larkspan::mac {

/// A frame rate that suits all active displays.
class MacDisplayLink final : public DisplayLink {
  public:
    Handle start(std::function<void()> frameDrawn) override;
};

} // namespace larkspan::mac
