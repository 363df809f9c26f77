#include "model/WindowRefresh.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace larkspan {

namespace {

constexpr double pollInterval = 0.5;
constexpr double housekeepingInterval = 2.0;
/// Seconds from a click or a Command key to the read that looks for its effect: the app has the
/// event now, and still has to open or close its window. Sooner, the read would find the windows of
/// before, and the effect would show with the next poll only.
constexpr double inputDelay = 0.1;
/// How long a full read may serve as the base of a cheaper one, in seconds.
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

/// What a notification that got lost would have told. The poll of the windows would show an app in
/// a section that its own state, known only from notifications, denies.
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
        // A desktop that tells when apps are installed or removed tells it so.
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
    // The slide, if there was one, is over: the read below stands for all that were held.
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
        // Without a poll nobody else would notice that windows now lie on other displays.
        requestRead(false);
}

void WindowRefresh::setPointerOnBar(bool onBar, bool isMenuOpen) {
    isPointerTold_ = onBar;
    isMenuOpen_ = isMenuOpen;
    holdTiles(onBar || isMenuOpen);
}

/// Views may miss that the pointer has left, when a window opens beneath it or a screen goes.
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
    // Not begun anew by a further event: a key that repeats would put it off for ever.
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
        // A read that has yet to begin will see what this one asks about.
        readAgain_ = !abilities_.readsAtOnce;
        return;
    }
    isReadingWindows_ = true;
    if (abilities_.readsAtOnce)
        readSoon();
    else
        readOnQueue();
}

/// One turn of the run loop later, so that a burst of events leads to one read.
void WindowRefresh::readSoon() {
    scheduler_.post([this, alive = std::weak_ptr(alive_)] {
        if (alive.expired()) return;
        // No event tells that no app is in front any more.
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

/// What a cheaper read may compare with. Only a desktop that is polled can be read so: it will be
/// looked at again, while an announced change that shows elsewhere than on screen would be lost.
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
