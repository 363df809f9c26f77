#pragma once

#include "adapters/sim/world/Windows.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace larkspan::sim {

/// What apps tell of their windows to those that observe them through Accessibility. A hung app
/// tells nothing until it is let go and something changes; one that dies tells nothing any more.
class WindowNotifications {
  public:
    WindowNotifications(World& world, Windows& windows);

    /// `window` is 0 for all windows of the app.
    Handle observe(ProcessId pid, WindowId window, std::string name,
                   std::function<void()> callback);

  private:
    struct Facts {
        /// 0 without one.
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
    void tellDifferences(ProcessId pid, const Facts& before, const Facts& now);
    void tell(ProcessId pid, WindowId window, const char* name);

    World& world_;
    Windows& windows_;
    /// Of the apps that are observed.
    std::map<ProcessId, Facts> known_;
    Signal<const Observer&> told_;
    Handle changes_;
};

} // namespace larkspan::sim
