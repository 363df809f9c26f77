#pragma once

#include "app/AppDelegate.h"
#include "app/Control.h"
#include "bar/RecordingPanels.h"
#include "platform/sim/SimMac.h"

#include <memory>
#include <string>
#include <vector>

namespace larkspan {

/// The program on a simulated Mac, with panels that only take notes.
class LaunchedApp {
  public:
    explicit LaunchedApp(sim::SimMac& mac)
        : delegate(mac.platform(), [this](AppController&) { return makePanels(); }) {
        delegate.didFinishLaunching();
    }

    /// The calls of the panels since the last time.
    std::vector<std::string> takeCalls() {
        return panels ? panels->takeCalls() : std::vector<std::string>{};
    }

    /// Nullptr until the first bars were needed.
    RecordingPanels* panels = nullptr;
    AppDelegate delegate;
    AppController& controller = delegate.controller();
    Control control{delegate};

  private:
    std::unique_ptr<BarPanels> makePanels() {
        auto made = std::make_unique<RecordingPanels>();
        panels = made.get();
        return made;
    }
};

} // namespace larkspan
