#pragma once

#include "platform/ScreenCapture.h"

namespace larkspan::mac {

/// The permission to record the screen. The system answers `preflightAccess` the same until this
/// process ends, whatever the user does meanwhile.
class MacScreenCapture final : public ScreenCapture {
  public:
    bool preflightAccess() const override;
    bool requestAccess() override;
};

} // namespace larkspan::mac
