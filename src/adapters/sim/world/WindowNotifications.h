#pragma once

#include "adapters/sim/world/Windows.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace larkspan::sim {

/// The notifications of apps about their windows to Accessibility observers. A hung app sends none
/// until it responds again and something changes; a dead one sends none any more.
class WindowNotifications {
  public:
    WindowNotifications(World& world, Windows& windows);

    /// `window` is 0 for all windows of the app.
    Handle observe(ProcessId pid, WindowId window, std::string name,
                   std::function<void()> callback);

  private:
    struct Facts {
        /// 0 if there is none.
        WindowId focused = 0;
        std::map<WindowId, Rect> frames;
    };
    struct Observer {
        ProcessId pid;
        WindowId window;
        std::string name;
    };

    Facts factsOf(ProcessId pid);
    void compare();
    void announceDifferences(ProcessId pid, const Facts& before, const Facts& now);
    void announce(ProcessId pid, WindowId window, const char* name);

    World& world_;
    Windows& windows_;
    /// For the observed apps.
    std::map<ProcessId, Facts> known_;
    Signal<const Observer&> notifications_;
    Handle changes_;
};

} // namespace larkspan::sim
