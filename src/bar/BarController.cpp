#include "bar/BarController.h"

#include <algorithm>
#include <fmt/format.h>
#include <utility>

namespace larkspan {
namespace {

/// Seconds for which a guess stands. A window takes less to go to full screen and back, and the
/// windows are read more often.
constexpr double guessLifetime = 1.5;

std::vector<Rect> screenFrames(const std::vector<DockBand>& bands) {
    std::vector<Rect> frames;
    for (const auto& band : bands)
        frames.push_back(band.screen.frame);
    return frames;
}

} // namespace

BarController::BarController(Scheduler& scheduler, DockStore& store, Screens& screens,
                             const CoreDock& dock, MakeInteraction makeInteraction,
                             BarPanels& panels, DiagnosticsLog& log, double height)
    : scheduler_(scheduler)
    , store_(store)
    , screens_(screens)
    , dock_(dock)
    , makeInteraction_(std::move(makeInteraction))
    , panels_(panels)
    , log_(log)
    , height_(height) {
    log_.write("bar", "no Space of their own; bars stay on every desktop");
    screenChanges_ = screens_.subscribe([this] {
        if (isShown_) layout();
    });
}

void BarController::show() {
    isShown_ = true;
    layout();
}

void BarController::hide() {
    isShown_ = false;
    updateVisibility();
}

void BarController::setHeight(double height) {
    if (height == height_) return;
    height_ = height;
    for (auto& bar : bars_)
        place(bar, bar.screen);
    updateBarFrames();
}

BarController::Bar BarController::makeBar(const Screen& screen) {
    Bar bar;
    bar.interaction = makeInteraction_();
    bar.panel = panels_.makePanel(screen, *bar.interaction);
    place(bar, screen);
    bar.observation = bar.interaction->contents.observe([this] { updateBarFrames(); });
    return bar;
}

void BarController::place(Bar& bar, const Screen& screen) {
    bar.screen = screen;
    bar.interaction->place(screen, bar.panel->place(screen, height_));
}

void BarController::fullScreenChanged(const FullScreenState& fullScreen) {
    if (fullScreen == fullScreen_) return;
    fullScreen_ = fullScreen;
    log_.write("bar", fmt::format("the window list now shows full-screen Spaces on [{}], "
                                  "screen-sized windows on [{}]",
                                  describeFrames(fullScreen_.spaces),
                                  describeFrames(fullScreen_.windows)));
    if (!fullScreen_.spaces.empty() && !guesses_.empty()) {
        guesses_.clear();
        log_.write("bar", fmt::format("macOS shows full-screen Spaces on [{}]; the bar's guesses "
                                      "give way",
                                      describeFrames(fullScreen_.spaces)));
    }
    updateVisibility();
}

void BarController::windowGrew(const Rect& screenFrame) {
    log_.write("bar", fmt::format("the front app's window fills [{}]; bars there slide away",
                                  describeFrames({screenFrame})));
    guess(screenFrame, Cover::window);
}

void BarController::windowShrank(const Rect& screenFrame) {
    log_.write("bar", fmt::format("the front app's window on [{}] shrinks; bars there slide back",
                                  describeFrames({screenFrame})));
    guess(screenFrame, Cover::none);
}

void BarController::guess(const Rect& screenFrame, Cover cover) {
    dropGuess(screenFrame);
    guesses_.push_back({screenFrame, cover, scheduler_.after(guessLifetime, [this, screenFrame] {
                            dropGuess(screenFrame);
                            updateVisibility();
                        })});
    updateVisibility();
}

void BarController::dropGuess(const Rect& screenFrame) {
    std::erase_if(guesses_,
                  [&](const Guess& each) { return isSameScreen(each.screenFrame, screenFrame); });
}

Cover BarController::coverNow(const Rect& screenFrame) const {
    const auto guess = std::ranges::find_if(
        guesses_, [&](const Guess& each) { return isSameScreen(each.screenFrame, screenFrame); });
    return guess == guesses_.end() ? coverOf(screenFrame, fullScreen_) : guess->cover;
}

void BarController::layout() {
    const auto bands = DockBand::bands(screens_);
    if (bands.empty() && !bars_.empty()) {
        const auto why = DockBand::whyNoBand(dock_);
        if (!why) {
            // The Dock restarts, or the screens are between two arrangements: the strip comes back.
            log_.write("layout", "no screen has a Dock strip; bars stay as they are");
            return;
        }
        warning_ = std::string(*why);
    }
    if (!bands.empty()) warning_.reset();

    const auto frames = screenFrames(bands);
    const auto list = describeFrames(frames);
    const bool isSame = frames == bandScreens_ && standsOn(bands);
    if (!isSame) guesses_.clear();
    bandScreens_ = frames;
    if (isSame) {
        log_.write("layout", fmt::format("same screens; Dock strip on [{}]; only visibility "
                                         "checked",
                                         list));
    } else if (!bands.empty() && bands.size() == bars_.size()) {
        moveBars(bands);
        log_.write("layout", "bars moved to the new screen frames");
    } else {
        buildBars(bands);
        log_.write("layout",
                   fmt::format("bars built again for {}; Dock strip on [{}]", bars_.size(), list));
    }
    updateVisibility();
}

bool BarController::standsOn(const std::vector<DockBand>& bands) const {
    return std::equal(bars_.begin(), bars_.end(), bands.begin(), bands.end(),
                      [](const Bar& bar, const DockBand& band) {
                          return bar.screen.display == band.screen.display &&
                                 bar.screen.scale == band.screen.scale;
                      });
}

void BarController::moveBars(const std::vector<DockBand>& bands) {
    // A bar stays with its display where that display is still there, so that swapping the main
    // screen moves nothing.
    std::vector<Bar> ordered(bands.size());
    for (std::size_t i = 0; i < bands.size(); ++i) {
        const auto own = std::find_if(bars_.begin(), bars_.end(), [&](const Bar& bar) {
            return bar.screen.display == bands[i].screen.display;
        });
        if (own == bars_.end()) continue;
        ordered[i] = std::move(*own);
        bars_.erase(own);
    }
    for (std::size_t i = 0; i < bands.size(); ++i) {
        if (!ordered[i].panel) {
            ordered[i] = std::move(bars_.back());
            bars_.pop_back();
        }
        place(ordered[i], bands[i].screen);
    }
    bars_ = std::move(ordered);
}

void BarController::buildBars(const std::vector<DockBand>& bands) {
    bars_.clear();
    for (const auto& band : bands)
        bars_.push_back(makeBar(band.screen));
}

void BarController::updateVisibility() {
    // The pointer cannot reveal a covered bar yet.
    constexpr bool isRevealed = false;
    for (auto& bar : bars_) {
        const auto display = bar.screen.display;
        const auto cover = coverNow(bar.screen.frame);
        const bool isWanted = isBarShown(isShown_, cover, isRevealed);
        if (cover != std::exchange(lastCover_[display], cover))
            log_.write("bar", fmt::format("display {} cover {}, revealed {}, wanted {}", display,
                                          nameOf(cover), isRevealed, isWanted));
        setShown(bar, isWanted);
    }
    updateBarFrames();
}

void BarController::setShown(Bar& bar, bool isShown) {
    if (isShown == bar.isShown) return;
    bar.isShown = isShown;
    if (isShown) {
        bar.interaction->setShown(true);
        bar.panel->orderIn();
    } else {
        bar.panel->orderOut();
        bar.interaction->setShown(false);
    }
}

void BarController::updateBarFrames() {
    std::vector<Rect> frames;
    for (const auto& bar : bars_)
        if (bar.isShown) frames.push_back(bar.interaction->frame());
    store_.barFramesChanged(std::move(frames));
}

} // namespace larkspan
