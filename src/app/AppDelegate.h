#pragma once

#include "app/AppController.h"

namespace larkspan {

/// The application's life, as the desktop tells it: one call for each of its moments. Main thread
/// only.
class AppDelegate {
  public:
    AppDelegate(const Platform& platform, AppController::MakeBarPanels makeBarPanels,
                bool hasIslands = true);

    void didFinishLaunching();
    /// The program was launched again while it runs. False in every case: the desktop is left to
    /// do what it does on its own.
    bool shouldHandleReopen();
    void willTerminate();

    AppController& controller() { return controller_; }

  private:
    Accessibility& accessibility_;
    AppController controller_;
};

} // namespace larkspan
