#pragma once

#include "adapters/sim/SimMac.h"
#include "app/AppDelegate.h"
#include "bar/RecordingPanels.h"
#include "control/Control.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace larkspan {

/// A Dock that its user has set up otherwise than it comes.
inline constexpr sim::DockSettings usersDock{
    .tileSize = 0.4F, .autoHide = true, .place = {3, 1}, .magnification = true};

/// The program on a simulated Mac, with panels that only take notes.
class LaunchedApp {
  public:
    explicit LaunchedApp(sim::SimMac& mac)
        : scheduler(mac.scheduler)
        , delegate(mac.platform(), [this](AppController&) { return makePanels(); }) {
        delegate.didFinishLaunching();
    }

    /// The calls of the panels since the last time.
    std::vector<std::string> takeCalls() {
        return panels ? panels->takeCalls() : std::vector<std::string>{};
    }

    /// The reply to a request; for a delayed one, lets time pass.
    ControlAnswer answer(const std::vector<std::string>& words) {
        const auto given = std::make_shared<std::optional<ControlAnswer>>();
        control.answer(words, [given](const ControlAnswer& answer) { *given = answer; });
        for (int turn = 0; !*given && turn < 20; ++turn)
            scheduler.runFor(0.1);
        return given->value_or(ControlAnswer{ExitCode::failed, "no reply within two seconds"});
    }

    sim::VirtualScheduler& scheduler;
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
