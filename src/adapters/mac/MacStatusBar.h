#pragma once

#include "platform/StatusBar.h"

namespace larkspan::mac {

/// The right part of the menu bar.
class MacStatusBar final : public StatusBar {
  public:
    Handle show(StatusItem item) override;
};

} // namespace larkspan::mac
