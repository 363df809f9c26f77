#include "model/ItemActions.h"

#include "model/PinnedSection.h"
#include "spaces/WindowPresence.h"

#include <algorithm>
#include <ranges>
#include <utility>

namespace larkspan {

namespace {

/// The seconds after which an app that has not appeared loses its launching mark.
constexpr double launchLimit = 30.0;
/// The seconds that an app may take to come to the front before its windows are spread out; after
/// that, the user is doing something else.
constexpr double comingForwardLimit = 1.0;

} // namespace

ItemActions::ItemActions(DockStore& store, Scheduler& scheduler, Workspace& workspace,
                         ApplicationControl& applications, Accessibility& accessibility,
                         CoreDock& dock, LoginItems& loginItems)
    : store_(store)
    , scheduler_(scheduler)
    , workspace_(workspace)
    , applications_(applications)
    , accessibility_(accessibility)
    , dock_(dock)
    , loginItems_(loginItems) {}

void ItemActions::open(const DockItem& item, const Rect& tileFrame) {
    if (!item.url) return;
    const bool isNew =
        !store_.runningIDs().contains(item.id) && !store_.launchingIDs()->contains(item.id);
    store_.allowRegroup(item.id);
    if (!applications_.open(*item.url) || !isNew) return;
    store_.launchBegan(item, tileFrame);
    launchLimits_[item.id] =
        scheduler_.after(launchLimit, [this, id = item.id] { store_.launchFailed(id); });
}

void ItemActions::openNewInstance(const DockItem& item, const Rect& tileFrame) {
    if (!item.app) {
        open(item, tileFrame);
        return;
    }
    store_.allowRegroup(item.id);
    if (item.url) applications_.openNewInstance(*item.url);
}

bool ItemActions::openFiles(const std::vector<std::string>& files, const DockItem& item) {
    if (!item.url || files.empty()) return false;
    store_.allowRegroup(item.id);
    return applications_.openWith(files, *item.url);
}

void ItemActions::showInFinder(const DockItem& item) {
    if (item.url) applications_.reveal(*item.url);
}

void ItemActions::show(const DockItem& item) {
    if (!item.app) return;
    store_.allowRegroup(item.id);
    applications_.unhide(item.app->pid);
    activate(item.app->pid);
}

void ItemActions::bringForward(const AppWindow& window) {
    restore({window});
    makeMain(window.element);
    activate(window.pid);
}

void ItemActions::showAllWindows(const DockItem& item) {
    if (!item.app) return;
    show(item);
    if (dock_.has(CoreDockFunction::sendNotification))
        spreadWindows(item.app->pid);
    else
        bringAllForward(item.app->pid);
}

/// The Dock can do it only for the frontmost app, and this one may not be in front yet.
void ItemActions::spreadWindows(ProcessId pid) {
    const auto isInFront = [this, pid] {
        const auto front = workspace_.frontmostApplication();
        return front && front->pid == pid;
    };
    if (isInFront()) {
        spreadWindowsOfFrontApp();
        return;
    }
    comingForward_ = workspace_.subscribe([this, isInFront](const WorkspaceEvent& event) {
        const bool hasCome =
            event.kind == WorkspaceEvent::Kind::didActivateApplication && isInFront();
        // In a separate turn: the subscription must not end during the notification.
        if (hasCome)
            comingForwardLimit_ = scheduler_.after(0, [this] { spreadWindowsOfFrontApp(); });
    });
    comingForwardLimit_ = scheduler_.after(comingForwardLimit, [this] { comingForward_.reset(); });
}

void ItemActions::spreadWindowsOfFrontApp() {
    comingForward_.reset();
    comingForwardLimit_.reset();
    dock_.sendNotification("com.apple.expose.front.awake");
}

void ItemActions::bringAllForward(ProcessId pid) {
    const auto windows = WindowPresence::accessibilityWindows(accessibility_, pid);
    if (!windows || windows->empty()) return;
    restore(*windows);
    // From back to front, to restore their stacking order.
    for (const auto& window : std::views::reverse(*windows))
        makeMain(window.element);
    activate(pid);
}

void ItemActions::hideOthers(std::optional<ProcessId> than) {
    for (const auto& app : store_.running())
        if (app.pid >= 1 && app.pid != than && !app.isHidden &&
            store_.windowPIDs().contains(app.pid))
            applications_.hide(app.pid);
}

void ItemActions::quit(ProcessId pid) {
    applications_.terminate(pid);
}

void ItemActions::forceQuit(ProcessId pid) {
    applications_.forceTerminate(pid);
}

bool ItemActions::keep(const std::string& id) {
    if (isPinned(id, store_.pinnedIDs())) return true;
    if (!store_.makePinnedItem(id)) return false;
    auto ids = store_.pinnedIDs();
    ids.push_back(id);
    store_.setPinned(std::move(ids));
    return true;
}

bool ItemActions::remove(const std::string& id) {
    auto ids = store_.pinnedIDs();
    if (id == finderIdentifier || std::erase(ids, id) == 0) return false;
    store_.setPinned(std::move(ids));
    return true;
}

std::optional<bool> ItemActions::opensAtLogin(const DockItem& item) const {
    return item.url ? loginItems_.opensAtLogin(*item.url) : std::nullopt;
}

bool ItemActions::setOpensAtLogin(const DockItem& item, bool opens) {
    return item.url && loginItems_.setOpensAtLogin(*item.url, opens);
}

void ItemActions::activate(ProcessId pid) {
    applications_.activate(pid);
    store_.animator().activated(pid);
}

void ItemActions::makeMain(const AXElementRef& window) {
    accessibility_.setAttribute(window, "AXMain", true);
    accessibility_.performAction(window, "AXRaise");
}

void ItemActions::restore(const std::vector<AppWindow>& windows) {
    for (const auto& window : windows)
        if (window.isMinimized) accessibility_.setAttribute(window.element, "AXMinimized", false);
}

} // namespace larkspan
