#pragma once

#include "platform/StatusBar.h"

#include <functional>
#include <string>

namespace larkspan::freedesktop {

/// The status bar of desktops that show status items over D-Bus. The bus is not used before an item
/// is shown. Main thread only.
class StatusNotifier : public StatusBar {
  public:
    /// `report` is called with one line if items cannot be shown on this desktop.
    explicit StatusNotifier(std::function<void(const std::string&)> report);

    Handle show(StatusItem item) override;

  private:
    std::function<void(const std::string&)> report_;
};

} // namespace larkspan::freedesktop
