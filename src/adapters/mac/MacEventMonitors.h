#pragma once

#include "platform/EventMonitor.h"

namespace larkspan::mac {

/// AppKit's event monitors. Key events are sent only to a program that is trusted for
/// Accessibility.
class MacEventMonitors final : public EventMonitors {
  public:
    Point mouseLocation() const override;
    Handle addGlobalMonitor(InputEventMask mask, Callback callback) override;
};

} // namespace larkspan::mac
