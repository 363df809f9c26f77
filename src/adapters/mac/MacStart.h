#pragma once

#include "platform/Desktop.h"

namespace larkspan::mac {

/// The Mac that the program was started on, in the session of this user.
class MacStart final : public DesktopStart {
  public:
    std::string instanceName() const override { return "mac"; }
    std::optional<std::string> unavailableReason() const override;
    Opened open(Scheduler& scheduler, DesktopCallbacks callbacks) const override;
};

} // namespace larkspan::mac
