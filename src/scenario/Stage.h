#pragma once

#include "adapters/sim/SimMac.h"
#include "app/AppDelegate.h"

#include <memory>

namespace larkspan::sim {

/// A simulated Mac with the program on it, which can be started, quit and killed as on a real one.
class Stage {
  public:
    /// `makeBarPanels` is called for each start; by default the bars have no picture.
    explicit Stage(AppController::MakeBarPanels makeBarPanels = {});
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    SimMac mac;

    /// A re-open when it runs.
    void start();
    /// Asks it to end; it ends in its own turn of the run loop.
    void quit();
    /// Ends it without a word: of the settings that it had not stored only the first `survivors`
    /// are not lost.
    void kill(std::size_t survivors = 0);

    /// Nullptr while the program does not run.
    AppDelegate* delegate() { return delegate_.get(); }
    /// Called when the program's objects are there, before anything of them is shown.
    std::function<void(AppController&)> onStart;
    /// Called before the program's objects go, so that views which look at them can go first.
    std::function<void()> onEnd;

  private:
    void end();

    AppController::MakeBarPanels makeBarPanels_;
    std::unique_ptr<AppDelegate> delegate_;
};

} // namespace larkspan::sim
