#include "spaces/FullScreenWatcher.h"

#include <fmt/format.h>

#include <cstdint>
#include <utility>

namespace larkspan {

namespace {

constexpr const char* focusQueue = "focused window";
constexpr const char* fullScreenCategory = "full screen";
/// A visit that takes at least this many seconds is logged.
constexpr double slowVisit = 0.1;

std::optional<FocusedWindow> readWindow(const Accessibility& accessibility,
                                        const AXElementRef& element) {
    const auto id = accessibility.window(element);
    if (!id) return std::nullopt;
    const auto place = accessibility.attribute(element, "AXPosition");
    const auto extent = accessibility.attribute(element, "AXSize");
    const auto* origin = place.as<Point>();
    const auto* size = extent.as<Size>();
    if (!origin || !size) return std::nullopt;
    return FocusedWindow{*id, {origin->x, origin->y, size->width, size->height}};
}

} // namespace

struct FullScreenWatcher::Visit {
    int round = 0;
    AXError error = AXError::success;
    std::optional<FocusedWindow> window;
    // Created here, but they must end on the main thread.
    std::vector<Handle> appObservers;
    Handle windowObserver;
    double seconds = 0;
};

/// The work of a visit on the queue. It may outlive the watcher, so it only knows the callbacks,
/// which run on the main thread.
struct FullScreenWatcher::Task {
    Accessibility& accessibility;
    ProcessId pid;
    bool isAppObserved;
    std::optional<WindowId> observedWindow;
    std::function<void()> onChange;
    std::function<void()> onDestroyed;

    void run(Visit& visit) const {
        const auto app = accessibility.createApplication(pid);
        // One call first: an app that does not respond would time out for each of the others too.
        visit.error = accessibility.attribute(app, "AXRole").error;
        if (visit.error != AXError::success) return;
        if (!isAppObserved)
            for (const char* name : {"AXFocusedWindowChanged", "AXWindowResized", "AXWindowMoved"})
                if (auto observer = accessibility.observe(app, name, onChange))
                    visit.appObservers.push_back(std::move(observer));
        const auto focused = accessibility.attribute(app, "AXFocusedWindow");
        const auto* element = focused.as<AXElementRef>();
        if (!element) return;
        visit.window = readWindow(accessibility, *element);
        if (visit.window && visit.window->id != observedWindow)
            visit.windowObserver =
                accessibility.observe(*element, "AXUIElementDestroyed", onDestroyed);
    }
};

FullScreenWatcher::FullScreenWatcher(Scheduler& scheduler, Workspace& workspace, Screens& screens,
                                     Accessibility& accessibility, DiagnosticsLog& log)
    : scheduler_(scheduler)
    , workspace_(workspace)
    , screens_(screens)
    , accessibility_(accessibility)
    , log_(log) {}

void FullScreenWatcher::start() {
    if (workspaceEvents_) return;
    workspaceEvents_ =
        workspace_.subscribe([this](const WorkspaceEvent& event) { workspaceChanged(event); });
    const auto front = workspace_.frontmostApplication();
    follow(front ? std::optional(front->pid) : std::nullopt);
}

void FullScreenWatcher::stop() {
    workspaceEvents_.reset();
    follow(std::nullopt);
}

void FullScreenWatcher::workspaceChanged(const WorkspaceEvent& event) {
    using Kind = WorkspaceEvent::Kind;
    if (!event.application) return;
    if (event.kind == Kind::didActivateApplication) follow(event.application->pid);
    if (event.kind != Kind::didTerminateApplication || event.application->pid != pid_) return;
    compare(std::nullopt);
    follow(std::nullopt);
}

void FullScreenWatcher::follow(std::optional<ProcessId> pid) {
    if (pid != pid_) {
        ++round_;
        pid_ = pid;
        appObservers_.clear();
        observedWindow_.reset();
        windowObserver_.reset();
        last_.reset();
        retry_.reset();
    }
    visit();
}

void FullScreenWatcher::visit() {
    if (!pid_) return;
    if (isVisiting_) {
        visitAgain_ = true;
        return;
    }
    isVisiting_ = true;
    const auto ifFollowed = [this, round = round_, alive = std::weak_ptr(alive_)](auto act) {
        return [this, round, alive, act] {
            if (!alive.expired() && round == round_) act();
        };
    };
    Task task{.accessibility = accessibility_,
              .pid = *pid_,
              .isAppObserved = !appObservers_.empty(),
              .observedWindow = observedWindow_,
              .onChange = ifFollowed([this] { visit(); }),
              .onDestroyed = ifFollowed([this] { windowGone(); })};
    scheduler_.queue(focusQueue)
        .post([this, task = std::move(task), round = round_, &scheduler = scheduler_,
               alive = std::weak_ptr(alive_)] {
            auto visit = std::make_shared<Visit>();
            visit->round = round;
            const double start = scheduler.uptime();
            task.run(*visit);
            visit->seconds = scheduler.uptime() - start;
            // Moved away: its observers must not end on this thread.
            scheduler.post([this, visit = std::move(visit), alive] {
                if (!alive.expired()) visited(std::move(*visit));
            });
        });
}

void FullScreenWatcher::visited(Visit visit) {
    isVisiting_ = false;
    if (visit.seconds >= slowVisit)
        log_.write(fullScreenCategory,
                   fmt::format("focused window read in {} ms off the main thread",
                               static_cast<std::int64_t>(visit.seconds * 1000)));
    if (visit.round == round_) take(std::move(visit));
    if (std::exchange(visitAgain_, false)) this->visit();
}

void FullScreenWatcher::take(Visit visit) {
    if (!visit.appObservers.empty()) appObservers_ = std::move(visit.appObservers);
    if (visit.error == AXError::cannotComplete) {
        retry_ = scheduler_.after(retryDelay, [this] { this->visit(); });
        return;
    }
    if (visit.windowObserver || !visit.window) {
        windowObserver_ = std::move(visit.windowObserver);
        observedWindow_ = visit.window ? std::optional(visit.window->id) : std::nullopt;
    }
    compare(visit.window);
}

void FullScreenWatcher::windowGone() {
    compare(std::nullopt);
    windowObserver_.reset();
    observedWindow_.reset();
    visit();
}

void FullScreenWatcher::compare(std::optional<FocusedWindow> now) {
    const auto before = std::exchange(last_, now);
    // A window that comes forward has not grown, and one that stays behind has not shrunk.
    if (!before || (now && now->id != before->id)) return;
    const auto height = barHeight ? barHeight() : std::nullopt;
    if (!height) return;
    const auto screens = screens_.screens();
    const auto filled = screenFilledBy(before->frame, screens, *height);
    const auto fills = now ? screenFilledBy(now->frame, screens, *height) : std::nullopt;
    if (filled == fills) return;
    if (filled && onShrunk) onShrunk(filled->frame);
    if (fills && onGrown) onGrown(fills->frame);
}

} // namespace larkspan
