#pragma once

#include "adapters/freedesktop/Environment.h"
#include "platform/Desktop.h"

namespace larkspan::x11 {

/// The X11 desktop of $DISPLAY, with its settings in the user's config folder.
class X11Start final : public DesktopStart {
  public:
    /// Stores the environment variables of this moment: launched applications get these, and not
    /// those set later for our own toolkit.
    X11Start()
        : environment_(freedesktop::Environment::ofProcess()) {}

    std::string instanceName() const override;
    std::optional<std::string> unavailableReason() const override;
    Opened open(Scheduler& scheduler, DesktopCallbacks callbacks) const override;

  private:
    freedesktop::Environment environment_;
};

} // namespace larkspan::x11
