#pragma once

#include "platform/ScreenCapture.h"

namespace larkspan::mac {

/// The permission to record the screen. The result of `preflightAccess` does not change while this
/// process runs, whatever the user does.
class MacScreenCapture final : public ScreenCapture {
  public:
    bool preflightAccess() const override;
    bool requestAccess() override;
};

} // namespace larkspan::mac
