#pragma once

#include "platform/Desktop.h"
#include "platform/DesktopPicture.h"
#include "platform/PanelDressing.h"

namespace larkspan::mac {

/// The real Mac: every interface of the platform over the system's frameworks. Main thread only;
/// what its interfaces allow from other threads holds.
class MacDesktop final : public Desktop {
  public:
    MacDesktop(Scheduler& scheduler, DesktopCallbacks callbacks);
    ~MacDesktop() override;

    Platform platform() override;
    PanelDressing& panelDressing() override;
    DesktopPicture& desktopPicture() override;
    std::string appearanceFolder() const override { return {}; }

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

} // namespace larkspan::mac
