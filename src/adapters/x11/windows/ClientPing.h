#pragma once

#include "platform/Identifiers.h"
#include "platform/Scheduler.h"

#include <string>
#include <vector>

namespace larkspan::x11 {

/// Checks with `_NET_WM_PING` whether clients still handle their events. The replies go to the root
/// window with many other events, so each check uses its own connection, which lasts as long as the
/// wait.
class ClientPing {
  public:
    /// Without a name, the display is that of $DISPLAY.
    ClientPing(Scheduler& scheduler, std::string display)
        : scheduler_(scheduler)
        , display_(std::move(display)) {}

    /// Whether one of the windows, which must all support the protocol, replied in time; also true
    /// if there is no window. Waits up to that many seconds. Not for the main thread, where it
    /// returns true at once.
    bool hasReply(const std::vector<WindowId>& windows, double seconds) const;

  private:
    Scheduler& scheduler_;
    std::string display_;
};

} // namespace larkspan::x11
