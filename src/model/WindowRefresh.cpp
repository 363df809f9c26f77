#include "model/WindowRefresh.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace larkspan {

namespace {

constexpr double pollInterval = 0.5;
constexpr double housekeepingInterval = 2.0;
/// The seconds from a click or a Command key to the read of its effect: the app has just received
/// the event, and still has to open or close its window. An earlier read would find the old
/// windows, and the effect would appear only with the next poll.
constexpr double inputDelay = 0.1;
/// The seconds that a full read can be the base of a cheaper one.
constexpr double baseLifetime = 2.0;
constexpr const char* windowQueue = "windows";
constexpr const char* windowCategory = "windows";

/// Whole milliseconds, truncated.
std::int64_t milliseconds(double from, double to) {
    return static_cast<std::int64_t>((to - from) * 1000);
}

} // namespace

WindowRefresh::WindowRefresh(DockStore& store, Scheduler& scheduler, Workspace& workspace,
                             Screens& screens, WindowServer& server,
                             const Accessibility& accessibility, DockPreferences& dock,
                             EventMonitors& monitors, DiagnosticsLog& log)
    : store_(store)
    , scheduler_(scheduler)
    , workspace_(workspace)
    , screens_(screens)
    , server_(server)
    , dock_(dock)
    , monitors_(monitors)
    , log_(log)
    , abilities_(server.abilities())
    , reader_(server)
    , reach_(store, scheduler, accessibility, [this] { requestRead(true); }) {
    readAtStart();
    observe();
}

void WindowRefresh::readAtStart() {
    followFront();
    store_.refreshRunning();
    if (auto read = reader_.read(screens_.screens())) store_.applyWindowRead(*std::move(read));
    store_.rebuild();
}

void WindowRefresh::observe() {
    observations_.push_back(
        workspace_.subscribe([this](const WorkspaceEvent& event) { workspaceChanged(event); }));
    observations_.push_back(screens_.subscribe([this] { screensChanged(); }));
    if (abilities_.announcesChanges) {
        observations_.push_back(server_.subscribe([this] { requestRead(false); }));
    } else {
        observations_.push_back(scheduler_.every(pollInterval, [this] { poll(); }));
        observations_.push_back(monitors_.addGlobalMonitor(
            maskOf(InputEventType::leftMouseUp) | maskOf(InputEventType::keyDown),
            [this](const InputEvent& event) { inputHeard(event); }));
    }

    if (dock_.announcesChanges())
        observations_.push_back(dock_.subscribe([this] { store_.reloadPinned(); }));
    if (!abilities_.announcesChanges || !dock_.announcesChanges())
        observations_.push_back(scheduler_.every(housekeepingInterval, [this] {
            if (!dock_.announcesChanges()) store_.reloadPinned();
            if (!abilities_.announcesChanges) catchUp();
        }));
}

/// Makes up for lost notifications. Otherwise the poll of the windows could put an app into a
/// section that contradicts its state, which only notifications change.
void WindowRefresh::catchUp() {
    followFront();
    if (store_.refreshRunning()) requestRead(true);
    store_.refreshPinned();
}

void WindowRefresh::workspaceChanged(const WorkspaceEvent& event) {
    using Kind = WorkspaceEvent::Kind;
    switch (event.kind) {
    case Kind::didActivateApplication:
        frontmostChanged();
        break;
    case Kind::runningApplicationsDidChange:
        requestRead(store_.refreshRunning());
        // A desktop that announces installed and removed apps does it in this way.
        store_.refreshPinned();
        break;
    case Kind::didLaunchApplication:
    case Kind::didTerminateApplication:
    case Kind::didHideApplication:
    case Kind::didUnhideApplication:
    case Kind::activeSpaceDidChange:
        appsChanged(event);
        break;
    }
}

void WindowRefresh::appsChanged(const WorkspaceEvent& event) {
    // A slide, if there was one, is over: the read below replaces all that were held.
    if (event.kind == WorkspaceEvent::Kind::activeSpaceDidChange) isSwitchingSpaces_ = false;
    if (event.application) followAnimator(event.kind, event.application->pid);
    store_.refreshRunning();
    requestRead(true);
}

void WindowRefresh::beginSpaceSwitch() {
    isSwitchingSpaces_ = true;
}

void WindowRefresh::endSpaceSwitch() {
    if (std::exchange(isSwitchingSpaces_, false)) requestRead(false);
}

void WindowRefresh::followAnimator(WorkspaceEvent::Kind kind, ProcessId pid) {
    if (kind == WorkspaceEvent::Kind::didTerminateApplication) store_.animator().forget(pid);
    if (kind == WorkspaceEvent::Kind::didUnhideApplication) store_.animator().unhidden(pid);
}

std::optional<RunningApplication> WindowRefresh::followFront() {
    auto front = workspace_.frontmostApplication();
    store_.frontAppChanged(front ? std::optional(front->pid) : std::nullopt);
    return front;
}

void WindowRefresh::frontmostChanged() {
    const auto front = followFront();
    if (front && front->bundleIdentifier) store_.acknowledgeAttention(*front->bundleIdentifier);
    requestRead(false);
}

void WindowRefresh::screensChanged() {
    std::vector<DisplayId> displays;
    for (const auto& screen : screens_.screens())
        displays.push_back(screen.display);
    if (displays != store_.groupedScreens())
        requestRead(true);
    else if (abilities_.announcesChanges)
        // Without a poll, nothing else would notice that windows are on other displays now.
        requestRead(false);
}

void WindowRefresh::setPointerOnBar(bool onBar, bool isMenuOpen) {
    isPointerTold_ = onBar;
    isMenuOpen_ = isMenuOpen;
    holdTiles(onBar || isMenuOpen);
}

/// Views may miss that the pointer has left, for example when a window opens under it or a screen
/// is removed.
void WindowRefresh::poll() {
    const bool wasHeld = store_.isPointerOnBar();
    holdTiles(isMenuOpen_ || (isPointerTold_ && isPointerInBarFrames()));
    if (!wasHeld || store_.isPointerOnBar()) requestRead(false);
}

bool WindowRefresh::isPointerInBarFrames() const {
    const Point pointer = monitors_.mouseLocation();
    return std::ranges::any_of(store_.barFrames(),
                               [&](const Rect& frame) { return frame.contains(pointer); });
}

void WindowRefresh::holdTiles(bool hold) {
    if (store_.pointerOnBarChanged(hold) && !hold) requestRead(true);
}

void WindowRefresh::inputHeard(const InputEvent& event) {
    const bool matters = event.type == InputEventType::leftMouseUp ||
                         (event.modifierFlags & ModifierFlag::command) != 0;
    // Not restarted by another event: a repeating key would delay it forever.
    if (!matters || readAfterInput_) return;
    readAfterInput_ = scheduler_.after(inputDelay, [this] {
        readAfterInput_.reset();
        requestRead(false);
    });
}

void WindowRefresh::requestRead(bool rebuild) {
    rebuildAfterRead_ = rebuildAfterRead_ || rebuild;
    if (isSwitchingSpaces_) return;
    if (isReadingWindows_) {
        // A read that has not begun yet will include what this one asks for.
        readAgain_ = !abilities_.readsAtOnce;
        return;
    }
    isReadingWindows_ = true;
    if (abilities_.readsAtOnce)
        readSoon();
    else
        readOnQueue();
}

/// In the next turn of the run loop, so that a burst of events causes one read.
void WindowRefresh::readSoon() {
    scheduler_.post([this, alive = std::weak_ptr(alive_)] {
        if (alive.expired()) return;
        // The system does not announce that no app is in front any more.
        followFront();
        const double start = scheduler_.uptime();
        readFinished(reader_.read(screens_.screens()), start);
    });
}

void WindowRefresh::readOnQueue() {
    const double start = scheduler_.uptime();
    auto read = [reader = reader_, base = baseOfRead(), screens = screens_.screens(),
                 closed = reach_.closed()] {
        return base ? reader.readUnlessSame(*base, screens, closed) : reader.read(screens, closed);
    };
    scheduler_.queue(windowQueue)
        .post([this, &scheduler = scheduler_, read = std::move(read), start,
               alive = std::weak_ptr(alive_)] {
            auto result = std::make_shared<std::optional<WindowRead>>(read());
            scheduler.post([this, result, start, alive] {
                if (!alive.expired()) readFinished(std::move(*result), start);
            });
        });
}

/// The base of a cheaper read. Only for a polled desktop, which will be read again: otherwise an
/// announced change off screen would be lost.
std::optional<ReadBase> WindowRefresh::baseOfRead() const {
    if (abilities_.announcesChanges || rebuildAfterRead_ || !lastFullRead_) return std::nullopt;
    if (scheduler_.uptime() - lastFullRead_->time >= baseLifetime) return std::nullopt;
    return lastFullRead_->base;
}

void WindowRefresh::readFinished(std::optional<WindowRead> read, double start) {
    const double end = scheduler_.uptime();
    isReadingWindows_ = false;
    if (isSwitchingSpaces_) {
        readAgain_ = false;
        log_.write(windowCategory,
                   fmt::format("window list read in {} ms, dropped since Spaces are sliding",
                               milliseconds(start, end)));
        return;
    }
    if (read && !abilities_.announcesChanges)
        lastFullRead_ = FullRead{{std::move(read->ids), read->front()}, start};
    if (read) reach_.follow(read->unconfirmed);
    if (read && onFullRead) onFullRead(read->windowPIDs);
    apply(std::move(read), start, end);
    if (std::exchange(readAgain_, false)) requestRead(false);
}

void WindowRefresh::apply(std::optional<WindowRead> read, double start, double end) {
    const bool hasRead = read.has_value();
    const bool isChanged = hasRead && store_.applyWindowRead(*std::move(read));
    const auto readTime = milliseconds(start, end);
    if (!isChanged && !rebuildAfterRead_) {
        log_.write(windowCategory,
                   fmt::format("window list read in {} ms; {}", readTime,
                               hasRead ? "nothing to regroup"
                                       : "no window came, went or changed on screen"));
        return;
    }
    rebuildAfterRead_ = false;
    const double rebuildStart = scheduler_.uptime();
    store_.rebuild(windowReadAnimation);
    log_.write(windowCategory,
               fmt::format("window list read in {} ms; icons regrouped in {} ms, SwiftUI animates "
                           "them for 0.35 s",
                           readTime, milliseconds(rebuildStart, scheduler_.uptime())));
}

} // namespace larkspan
