#pragma once

#include "platform/EventMonitor.h"

namespace larkspan::mac {

/// Monitors of events as AppKit has them. Keys are told only to a program that is trusted for
/// Accessibility.
class MacEventMonitors final : public EventMonitors {
  public:
    Point mouseLocation() const override;
    Handle addGlobalMonitor(InputEventMask mask, Callback callback) override;
};

} // namespace larkspan::mac
