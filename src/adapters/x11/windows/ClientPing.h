#pragma once

#include "platform/Identifiers.h"
#include "platform/Scheduler.h"

#include <string>
#include <vector>

namespace larkspan::x11 {

/// Asks clients whether they still handle their events, by `_NET_WM_PING`. Their answers go to the
/// root window amid everything that happens there, so each question has a connection of its own,
/// which lives as long as the wait.
class ClientPing {
  public:
    /// Without a name: $DISPLAY's.
    ClientPing(Scheduler& scheduler, std::string display)
        : scheduler_(scheduler)
        , display_(std::move(display)) {}

    /// Whether one of the windows, which all take part in the protocol, answered in time; true also
    /// when there is nobody to ask. Waits up to so many seconds: never on the main thread, where it
    /// answers true at once.
    bool isAnswered(const std::vector<WindowId>& windows, double seconds) const;

  private:
    Scheduler& scheduler_;
    std::string display_;
};

} // namespace larkspan::x11
