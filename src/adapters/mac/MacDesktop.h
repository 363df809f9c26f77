#pragma once

#include "platform/Desktop.h"
#include "platform/DesktopPicture.h"
#include "platform/PanelDressing.h"

namespace larkspan::mac {

/// The real Mac: every interface of the platform, on the system's frameworks. Main thread only,
/// except what the interfaces allow on other threads.
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
