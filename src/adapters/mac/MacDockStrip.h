#pragma once

#include "platform/DockStrip.h"

namespace larkspan::mac {

/// Does nothing: the system Dock reserves the strip.
class MacDockStrip final : public DockStrip {
  public:
    void hold(double) override {}
    void release() override {}
};

} // namespace larkspan::mac
