#pragma once

#include "bar/BarController.h"
#include "diagnostics/DiagnosticsLog.h"
#include "model/DockStore.h"
#include "platform/Scheduler.h"

namespace larkspan {

/// Brings the keyboard onto the bar of the display that the user works on. Main thread only.
class KeyboardEntry {
  public:
    KeyboardEntry(Scheduler& scheduler, const DockStore& store, const BarController& bars,
                  DiagnosticsLog& log);

    /// False when no bar is shown. Otherwise the bar has the keyboard now, or as soon as whoever
    /// holds it lets it go: a window manager keeps it until the key that it was told to listen for
    /// is released.
    bool begin();

  private:
    const BarController::Bar* barInUse() const;
    void attempt(double deadline);

    Scheduler& scheduler_;
    const DockStore& store_;
    const BarController& bars_;
    DiagnosticsLog& log_;
    Handle retry_;
};

} // namespace larkspan
