#pragma once

#include "bar/BarCover.h"
#include "bar/BarInteraction.h"
#include "bar/BarPanel.h"
#include "diagnostics/DiagnosticsLog.h"
#include "dock/DockBand.h"
#include "model/DockStore.h"
#include "platform/CoreDock.h"
#include "platform/Scheduler.h"
#include "platform/Screens.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace larkspan {

/// One bar per screen that has a strip for it: keeps the bars in step with the screens, the strips
/// and what covers a screen. A bar that must go or come does so at once; it does not slide yet.
/// Main thread only.
class BarController {
  public:
    struct Bar {
        /// Before the panel, which goes first.
        std::unique_ptr<BarInteraction> interaction;
        std::unique_ptr<BarPanel> panel;
        Screen screen;
        bool isShown = false;
        /// Of the contents, which decide how wide the bar is.
        Handle observation;
    };
    using MakeInteraction = std::function<std::unique_ptr<BarInteraction>()>;

    /// Makes no bars yet. `height` in points.
    BarController(Scheduler& scheduler, DockStore& store, Screens& screens, const CoreDock& dock,
                  MakeInteraction makeInteraction, BarPanels& panels, DiagnosticsLog& log,
                  double height);
    BarController(const BarController&) = delete;
    BarController& operator=(const BarController&) = delete;

    /// Bars are wanted: builds them where they are missing and shows them.
    void show();
    /// Takes every bar off the screen. The bars are kept for the next time.
    void hide();
    /// Points; bars that exist take the height at once.
    void setHeight(double height);
    /// What the window inventory now says about covered screens.
    void fullScreenChanged(const FullScreenState& fullScreen);
    /// The front app's window grew over the strip of the screen with that frame, or shrank back.
    /// The bar believes it ahead of the window inventory, for a while.
    void windowGrew(const Rect& screenFrame);
    void windowShrank(const Rect& screenFrame);
    /// Looks again which bars are shown.
    void updateVisibility();

    const std::vector<Bar>& bars() const { return bars_; }
    double height() const { return height_; }
    bool isShown() const { return isShown_; }
    /// Why there is no bar, as a sentence for the settings; absent while there are bars.
    const std::optional<std::string>& warning() const { return warning_; }

  private:
    /// What is believed to cover a screen, until its time is over.
    struct Guess {
        Rect screenFrame;
        Cover cover;
        Handle end;
    };

    void layout();
    Bar makeBar(const Screen& screen);
    void place(Bar& bar, const Screen& screen);
    void moveBars(const std::vector<DockBand>& bands);
    void buildBars(const std::vector<DockBand>& bands);
    Cover coverNow(const Rect& screenFrame) const;
    void guess(const Rect& screenFrame, Cover cover);
    void dropGuess(const Rect& screenFrame);
    void setShown(Bar& bar, bool isShown);
    void updateBarFrames();
    bool standsOn(const std::vector<DockBand>& bands) const;

    Scheduler& scheduler_;
    DockStore& store_;
    Screens& screens_;
    const CoreDock& dock_;
    MakeInteraction makeInteraction_;
    BarPanels& panels_;
    DiagnosticsLog& log_;
    double height_;
    bool isShown_ = false;
    std::vector<Bar> bars_;
    std::optional<std::string> warning_;
    /// The frames of the screens that had a strip at the last layout.
    std::vector<Rect> bandScreens_;
    FullScreenState fullScreen_;
    std::vector<Guess> guesses_;
    std::map<DisplayId, Cover> lastCover_;
    Handle screenChanges_;
};

} // namespace larkspan
