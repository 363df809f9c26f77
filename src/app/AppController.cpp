#include "app/AppController.h"

#include "app/BarMenu.h"
#include "dock/DockIconSize.h"
#include "dock/DockProfile.h"
#include "spaces/WindowPresence.h"

#include <algorithm>
#include <set>
#include <utility>

namespace larkspan {

AppController::AppController(const Platform& platform, MakeBarPanels makeBarPanels, bool hasIslands)
    : platform_(platform)
    , makeBarPanels_(std::move(makeBarPanels))
    , log_(platform.scheduler)
    , lostProcesses_(platform.scheduler, platform.workspace, log_)
    , switchLog_(platform.scheduler, platform.systemLog, platform.displayLink, platform.screens)
    , settings_(platform.defaults, hasIslands)
    , permissions_(platform.scheduler, platform.accessibility, platform.screenCapture,
                   platform.applications, platform.application)
    , look_(settings_)
    , pointer_(platform.screens, platform.eventMonitors)
    , fullScreenWatcher_(platform.scheduler, platform.workspace, platform.screens,
                         platform.accessibility, log_)
    , mode_(settings_.mode())
    , animator_(platform.scheduler, platform.applications, flights_)
    , store_(platform.scheduler, platform.workspace, platform.applications, platform.screens,
             platform.dockPreferences, animator_, log_)
    , refresh_(store_, platform.scheduler, platform.workspace, platform.screens,
               platform.windowServer, platform.accessibility, platform.dockPreferences,
               platform.eventMonitors, log_)
    , trashWatch_(platform.scheduler, platform.trash,
                  [this](bool isEmpty) { store_.trashChanged(isEmpty); })
    , mover_(platform.scheduler, platform.windowServer)
    , actions_(store_, platform.scheduler, platform.workspace, platform.applications,
               platform.accessibility, platform.coreDock, platform.loginItems)
    , click_(store_, actions_, platform.scheduler, platform.workspace, platform.applications,
             platform.accessibility, log_)
    , itemMenu_(store_, actions_, platform.scheduler, platform.accessibility)
    , tileActions_(store_, click_, itemMenu_,
                   {.open = [this] { platform_.trash.open(); },
                    .menu = [this] { return trashMenu(platform_.trash); }})
    , slide_(platform.scheduler, switchLog_)
    , swipes_(platform.scheduler, platform.eventTaps, platform.windowServer, platform.screens,
              switchLog_, [this](const SpaceSwipeEvent& step) { slide_.step(step); }) {}

void AppController::start() {
    wireCallbacks();
    followSpaceSwitches();
    if (mode_ == BarMode::systemDock)
        useSystemDock();
    else
        useVantrel();
    if (!permissions_.hasAll()) permissions_.show();
}

void AppController::wireCallbacks() {
    pointer_.onDisplayChange = [this] {
        if (bars_ && bars_->isShown()) bars_->updateVisibility();
    };
    store_.onFullScreenChange = [this](const FullScreenState& fullScreen) {
        if (bars_) bars_->fullScreenChanged(fullScreen);
    };
    refresh_.onFullRead = [this](const std::set<ProcessId>& owners) {
        lostProcesses_.follow(owners);
    };
    fullScreenWatcher_.barHeight = [this] { return barHeight(); };
    fullScreenWatcher_.onGrown = [this](const Rect& screenFrame) {
        if (bars_) bars_->windowGrew(screenFrame);
    };
    fullScreenWatcher_.onShrunk = [this](const Rect& screenFrame) {
        if (bars_) bars_->windowShrank(screenFrame);
    };
}

void AppController::followSpaceSwitches() {
    slide_.onSliding = [this] { refresh_.beginSpaceSwitch(); };
    slide_.onRest = [this] { refresh_.endSpaceSwitch(); };
    switchLog_.readBars = [this] { return barStates(); };
    switchLog_.onRunning = [this](bool isRunning) {
        if (poll_) poll_->setFast(isRunning);
    };
    stamps_.push_back(platform_.workspace.subscribe([this](const WorkspaceEvent& event) {
        using Kind = WorkspaceEvent::Kind;
        if (event.kind == Kind::didActivateApplication && event.application)
            switchLog_.appActivated(*event.application);
        if (event.kind != Kind::activeSpaceDidChange) return;
        switchLog_.spaceChanged();
        slide_.spaceChanged();
    }));
    stamps_.push_back(platform_.screens.subscribe([this] { switchLog_.screensChanged(); }));
    stamps_.push_back(log_.subscribe([this](const DiagnosticsLog::Line& line) {
        if (line.category == "windows")
            switchLog_.stamp(line.category, line.text, SpaceSwitchLog::Mark::passive);
    }));
    if (!swipes_.start()) log_.write("swipe", "could not listen for swipes");
    if (!platform_.windowServer.abilities().announcesChanges &&
        platform_.systemLog.isEnabled(SystemLog::Level::standard))
        pollSpaces();
}

void AppController::pollSpaces() {
    poll_ = std::make_unique<SpacePoll>(platform_.scheduler, platform_.windowServer, switchLog_,
                                        displayInUse());
    const auto follow = [this] { poll_->setDisplayInUse(displayInUse()); };
    stamps_.push_back(store_.frontDisplays().observe(follow));
    stamps_.push_back(store_.frontmostPID().observe(follow));
    stamps_.push_back(platform_.screens.subscribe(follow));
}

/// The window server's name of the display with the frontmost app's front window; empty if that app
/// has none.
std::string AppController::displayInUse() const {
    for (const auto& screen : platform_.screens.screens()) {
        const auto front = store_.frontDisplays()->find(screen.display);
        if (front != store_.frontDisplays()->end() && front->second == *store_.frontmostPID())
            return screen.displayIdentifier;
    }
    return {};
}

std::vector<BarState> AppController::barStates() const {
    std::vector<BarState> states;
    if (!bars_) return states;
    for (const auto& bar : bars_->bars())
        states.push_back(
            {.display = bar.screen.display, .isOnScreen = bar.isShown, .isWanted = bar.isShown});
    return states;
}

double AppController::wantedBarHeight() const {
    return settings_.barHeight().value_or(BarSettings::defaultBarHeight);
}

std::optional<double> AppController::barHeight() const {
    if (mode_ == BarMode::systemDock) return std::nullopt;
    return wantedBarHeight();
}

void AppController::useVantrel() {
    mode_ = BarMode::vantrel;
    settings_.setMode(mode_);
    shrinkDock();
    platform_.dockStrip.hold(wantedBarHeight());
    statusItem_.reset();
    auto& bars = makeBars();
    bars.setHeight(wantedBarHeight());
    bars.show();
    if (!badges_)
        badges_.emplace(store_, platform_.scheduler, platform_.workspace, platform_.accessibility,
                        platform_.coreDock, platform_.notices, log_);
    // If every change is announced, the window list is as current as the app itself.
    if (!platform_.windowServer.abilities().announcesChanges) fullScreenWatcher_.start();
    startFitting();
}

void AppController::useSystemDock() {
    mode_ = BarMode::systemDock;
    settings_.setMode(mode_);
    fullScreenWatcher_.stop();
    if (bars_) bars_->hide();
    badges_.reset();
    platform_.dockStrip.release();
    giveDockBack();
    showStatusItem();
}

void AppController::stop() {
    store_.flushPinned();
    if (mode_ != BarMode::vantrel) return;
    platform_.dockStrip.release();
    giveDockBack();
}

void AppController::shrinkDock() {
    const auto current = DockProfile::current(platform_.coreDock);
    if (!current) return;
    // An existing profile is from a run that crashed: the Dock is still shrunk, and the profile has
    // the user's settings. Settings that could not be stored before the first change could not be
    // restored after a kill, so then the Dock is not changed.
    if (!DockProfile::saved(platform_.defaults) && !current->save(platform_.defaults)) {
        log_.write("dock", "the Dock's settings could not be saved; the Dock stays as it is");
        return;
    }
    const double fitHeight = std::min(wantedBarHeight(), tallestFit);
    current->underBar().apply(platform_.coreDock, tileFraction(firstIconSize(fitHeight)));
}

void AppController::giveDockBack() {
    fitting_.reset();
    const auto saved = DockProfile::saved(platform_.defaults);
    if (!saved) return;
    saved->apply(platform_.coreDock, saved->tileSize);
    DockProfile::forgetSaved(platform_.defaults);
    platform_.defaults.synchronize();
}

void AppController::startFitting() {
    fitting_.reset();
    // Settings that cannot be read or are not saved could not be restored.
    const auto& dock = platform_.coreDock;
    if (!DockProfile::current(dock) || !DockProfile::saved(platform_.defaults)) return;
    if (const auto why = whyNoResize(dock)) {
        log_.write("dock", std::string(*why));
        return;
    }
    fitting_ = std::make_unique<DockFitting>(
        platform_.scheduler, platform_.coreDock, platform_.screens,
        std::min(wantedBarHeight(), tallestFit), [this](float fraction) {
            settings_.setSyncedTileSize(fraction);
            fitting_.reset();
        });
}

BarController& AppController::makeBars() {
    if (!bars_) {
        barPanels_ = makeBarPanels_(*this);
        overlay_ = std::make_unique<BarOverlay>(tileActions_, refresh_, barPanels_->popups(),
                                                [this] { return barMenu(*this); });
        const auto makeInteraction = [this] {
            return std::make_unique<BarInteraction>(platform_.scheduler, store_, look_, *overlay_);
        };
        bars_ = std::make_unique<BarController>(platform_.scheduler, store_, platform_.screens,
                                                platform_.coreDock, makeInteraction, *barPanels_,
                                                log_, wantedBarHeight());
        bars_->fullScreenChanged(store_.fullScreen());
        keyboardEntry_ = std::make_unique<KeyboardEntry>(platform_.scheduler, store_, *bars_, log_);
    }
    return *bars_;
}

bool AppController::focusBar() {
    return keyboardEntry_ && keyboardEntry_->begin();
}

void AppController::moveWindow(WindowId window, SpaceId space, WindowMover::Done done) {
    mover_.move({window}, space, [this, done = std::move(done)](WindowMover::Outcome outcome) {
        // A cheaper read would miss a window that moved between two Spaces out of view.
        if (outcome == WindowMover::Outcome::moved) refresh_.requestRead(true);
        done(outcome);
    });
}

void AppController::setBarHeight(std::optional<double> height) {
    changeSetting(settings_.row("barHeight"), height);
}

/// The height also affects the Dock and its strip, so storing it is not enough.
void AppController::followBarHeight() {
    if (mode_ != BarMode::vantrel || !bars_) return;
    platform_.dockStrip.hold(wantedBarHeight());
    bars_->setHeight(wantedBarHeight());
    startFitting();
}

SettingValue AppController::settingInEffect(const Setting& setting) const {
    return look_.has(setting) ? look_.value(setting) : settings_.value(setting);
}

void AppController::changeSetting(const Setting& setting, const SettingValue& value) {
    if (look_.has(setting)) return look_.set(setting, value);
    settings_.set(setting, value);
    if (setting.key == "barHeight") followBarHeight();
}

void AppController::showStatusItem() {
    if (statusItem_) return;
    const Menu menu{
        {.title = "Use Larkspan", .action = [this] { useVantrel(); }},
        MenuItem::separator(),
        {.title = "Quit Larkspan", .action = [this] { quit(); }},
    };
    statusItem_ = platform_.statusBar.show(
        {.symbol = "dock.rectangle", .accessibilityDescription = "Larkspan", .menu = menu});
}

bool AppController::opensAtLogin() const {
    return platform_.loginItem.status() == LoginItem::Status::enabled;
}

void AppController::quit() {
    platform_.application.terminate();
}

bool AppController::hasSystemDock() const {
    return DockProfile::current(platform_.coreDock).has_value();
}

std::optional<std::string> AppController::heightRefusalReason() const {
    // A higher bar would cover windows if the Dock under it cannot grow.
    const auto why = whyNoResize(platform_.coreDock);
    return why && hasSystemDock() ? std::optional<std::string>(*why) : std::nullopt;
}

bool AppController::isAccessibilityTrusted() const {
    return platform_.accessibility.isProcessTrusted();
}

bool AppController::canCaptureScreen() const {
    return platform_.screenCapture.preflightAccess();
}

std::optional<std::vector<AppWindow>> AppController::listedWindows(ProcessId pid,
                                                                   float patience) const {
    return WindowPresence::accessibilityWindows(platform_.accessibility, pid, patience);
}

std::vector<Screen> AppController::screens() const {
    return platform_.screens.screens();
}

std::string AppController::description() const {
    return platform_.application.description();
}

void AppController::toggleLoginItem() {
    auto& item = platform_.loginItem;
    const bool isDone = opensAtLogin() ? item.unregisterItem() : item.registerItem();
    if (!isDone) item.openSystemSettings();
}

} // namespace larkspan
