#include "model/IconClick.h"

#include "spaces/WindowPresence.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace larkspan {

namespace {

/// How long the system may take to report an app that the bar has activated as frontmost, in
/// seconds.
constexpr double activationWindow = 1.0;

const char* nameOf(WindowAnimator::Phase phase) {
    using Phase = WindowAnimator::Phase;
    switch (phase) {
    case Phase::none:
        return "none";
    case Phase::hiding:
        return "hiding";
    case Phase::showing:
        return "showing";
    case Phase::settling:
        return "settling";
    }
    return "none";
}

} // namespace

IconClick::IconClick(DockStore& store, ItemActions& actions, Scheduler& scheduler,
                     Workspace& workspace, ApplicationControl& applications,
                     Accessibility& accessibility, DiagnosticsLog& log)
    : store_(store)
    , actions_(actions)
    , scheduler_(scheduler)
    , workspace_(workspace)
    , applications_(applications)
    , accessibility_(accessibility)
    , log_(log) {}

void IconClick::click(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame,
                      ClickModifiers modifiers) {
    if (modifiers.newInstance) {
        actions_.openNewInstance(item, tileFrame);
        return;
    }
    if (modifiers.command && !modifiers.option) {
        actions_.showInFinder(item);
        return;
    }
    const auto own = item.app ? std::optional(item.app->pid) : std::nullopt;
    const auto left = frontProcess();
    open(item, group, tileFrame, modifiers.option);
    // Only now: otherwise the system would bring forward an app behind the hidden ones.
    if (modifiers.option && modifiers.command)
        actions_.hideOthers(own);
    else if (modifiers.option && left != own)
        hideOne(left);
}

void IconClick::hideOne(std::optional<ProcessId> pid) {
    const auto* app = pid ? store_.runningApplication(*pid) : nullptr;
    if (app && !app->isHidden) applications_.hide(app->pid);
}

void IconClick::open(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame,
                     bool onlyForward) {
    if (!item.app || item.app->pid < 1) {
        actions_.open(item, tileFrame);
        return;
    }
    const ProcessId pid = item.app->pid;
    const auto* app = store_.runningApplication(pid);
    // A requested hide that has not begun counts as a flight.
    const auto phase = store_.animator().hasPendingHide(pid) ? WindowAnimator::Phase::hiding
                                                             : store_.animator().phase(pid);
    clickRunning({.item = item,
                  .group = group,
                  .tileFrame = tileFrame,
                  .pid = pid,
                  .isHidden = (app ? *app : *item.app).isHidden,
                  .phase = phase,
                  .onlyForward = onlyForward});
}

void IconClick::clickRunning(Clicked clicked) {
    using Phase = WindowAnimator::Phase;
    const auto front = workspace_.frontmostApplication();
    log_.write("DockStore",
               fmt::format("click {}: phase={} hidden={} active={} justActivated={}",
                           clicked.item.name, nameOf(clicked.phase), clicked.isHidden,
                           front && front->pid == clicked.pid, recentActivation() == clicked.pid));
    const bool isComing = clicked.phase == Phase::showing || clicked.phase == Phase::settling;
    const bool isSentAway =
        !clicked.onlyForward && (isComing || (clicked.phase == Phase::none && shouldHide(clicked)));
    if (isSentAway) {
        store_.forbidRegroup(clicked.item.id);
        store_.animator().hide(clicked.pid, clicked.tileFrame);
    } else {
        store_.allowRegroup(clicked.item.id);
        bringForward(clicked);
    }
}

bool IconClick::shouldHide(Clicked& clicked) const {
    if (clicked.isHidden || frontProcess() != clicked.pid) return false;
    if (!accessibility_.isProcessTrusted()) return true;
    const auto* group = clicked.group;
    if (group && group->slot.space && store_.spaceMap() &&
        !store_.spaceMap()->shown.contains(*group->slot.space))
        return false;
    // An app with no window here is not hidden: the click shows its windows.
    return std::ranges::any_of(windowsOf(clicked), [](const AppWindow& window) {
        return !window.isMinimized && !window.isOnOtherSpace;
    });
}

void IconClick::bringForward(Clicked& clicked) {
    const bool isHiding = clicked.phase == WindowAnimator::Phase::hiding;
    const auto& windows = windowsOf(clicked);
    if (!clicked.isHidden && !isHiding && !windows.empty()) {
        actions_.restore(windows);
        actions_.makeMain(windows.front().element);
        actions_.activate(clicked.pid);
        return;
    }
    if (clicked.isHidden && store_.animator().show(clicked.pid, clicked.tileFrame)) return;
    if (isHiding) {
        store_.animator().cancelHide(clicked.pid);
        actions_.restore(windows);
        actions_.activate(clicked.pid);
        return;
    }
    if (clicked.answers) raiseMainWindow(clicked.pid);
    if (clicked.isHidden) applications_.unhide(clicked.pid);
    store_.animator().activated(clicked.pid);
    // Opening the URL of a second copy would bring the first one forward.
    const auto& bundle = clicked.item.app->bundleIdentifier;
    const bool isSecondCopy = bundle && *bundle != clicked.item.id;
    if (clicked.item.url && !isSecondCopy)
        applications_.open(*clicked.item.url);
    else
        applications_.activate(clicked.pid);
}

void IconClick::raiseMainWindow(ProcessId pid) {
    if (!accessibility_.isProcessTrusted()) return;
    const auto window =
        accessibility_.attribute(accessibility_.createApplication(pid), "AXMainWindow");
    if (const auto* element = window.as<AXElementRef>()) actions_.makeMain(*element);
}

const std::vector<AppWindow>& IconClick::windowsOf(Clicked& clicked) const {
    if (!clicked.windows) {
        auto listed = WindowPresence::accessibilityWindows(accessibility_, clicked.pid);
        clicked.answers = listed.has_value();
        clicked.windows = store_.windowsOf(clicked.pid, clicked.group, std::move(listed));
    }
    return *clicked.windows;
}

/// The process that the bar has just activated.
std::optional<ProcessId> IconClick::recentActivation() const {
    const auto& activation = store_.animator().lastActivation();
    if (!activation || scheduler_.uptime() - activation->time >= activationWindow)
        return std::nullopt;
    return activation->pid;
}

std::optional<ProcessId> IconClick::frontProcess() const {
    if (const auto recent = recentActivation()) return recent;
    const auto front = workspace_.frontmostApplication();
    return front ? std::optional(front->pid) : std::nullopt;
}

} // namespace larkspan
