#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "platform/EventMonitor.h"
#include "platform/Screens.h"
#include "platform/Signal.h"

namespace larkspan::x11 {

/// The pointer's position and its moves. Clicks and keys of other programs are not reported, and
/// not needed, since every change of a window is announced. Moves are selected only while a monitor
/// wants them, and not for a moment after each, so that a moving mouse wakes the program only a few
/// times a second.
class X11EventMonitors final : public EventMonitors {
  public:
    X11EventMonitors(X11Connection& connection, Scheduler& scheduler, const Screens& screens,
                     double scale);

    Point mouseLocation() const override;
    Handle addGlobalMonitor(InputEventMask mask, Callback callback) override;

  private:
    void listen(bool isWanted);
    void reportMove();
    void listenAgain();

    X11Connection& connection_;
    Scheduler& scheduler_;
    const Screens& screens_;
    double scale_;
    Signal<const InputEvent&> moves_;
    /// The events of the connection; only while moves are selected.
    Handle motions_;
    Handle pause_;
    Point lastReported_;
};

} // namespace larkspan::x11
