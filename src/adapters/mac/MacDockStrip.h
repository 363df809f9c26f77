#pragma once

#include "platform/DockStrip.h"

namespace larkspan::mac {

/// Nothing: the system Dock holds the strip.
class MacDockStrip final : public DockStrip {
  public:
    void hold(double) override {}
    void release() override {}
};

} // namespace larkspan::mac
