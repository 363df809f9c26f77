#pragma once

#include "app/AppController.h"

namespace larkspan {

/// The application's life cycle, with one method for each of its events. Main thread only.
class AppDelegate {
  public:
    AppDelegate(const Platform& platform, AppController::MakeBarPanels makeBarPanels,
                bool hasIslands = true);

    void didFinishLaunching();
    /// The program was launched again while it runs. Always returns false: the desktop does nothing
    /// else.
    bool shouldHandleReopen();
    void willTerminate();

    AppController& controller() { return controller_; }

  private:
    Accessibility& accessibility_;
    AppController controller_;
};

} // namespace larkspan
