#include "model/DockStore.h"

#include "dock/PinnedApps.h"
#include "model/Animation.h"
#include "model/Classification.h"
#include "model/ItemIdentity.h"
#include "model/PinnedSection.h"
#include "model/WindowChangeLine.h"
#include "spaces/SlotWindows.h"

#include <algorithm>
#include <cassert>
#include <filesystem>
#include <iterator>
#include <utility>

namespace larkspan {

namespace {

constexpr double pinnedWriteDelay = 1.0;
/// How long a tile may take to its new place, in seconds.
constexpr double moveTime = 1.0;

std::set<std::string> idsOf(const std::vector<DisplayGroup>& groups) {
    std::set<std::string> ids;
    for (const auto& group : groups)
        for (const auto& item : group.items)
            ids.insert(item.id);
    return ids;
}

template <typename Key, typename Value>
Value valueOrNone(const std::map<Key, Value>& map, const Key& key) {
    const auto found = map.find(key);
    return found == map.end() ? Value{} : found->second;
}

template <typename Value>
void keepOnly(std::map<ProcessId, Value>& map, const std::vector<ProcessId>& pids) {
    const std::set<ProcessId> kept(pids.begin(), pids.end());
    std::erase_if(map, [&](const auto& entry) { return !kept.contains(entry.first); });
}

template <typename Value>
void unite(std::map<ProcessId, std::set<Value>>& seen,
           const std::map<ProcessId, std::set<Value>>& now) {
    for (const auto& [pid, values] : now)
        seen[pid].insert(values.begin(), values.end());
}

/// Whether the displays have the same Spaces and show the same ones.
bool haveSameLayout(const std::optional<SpaceMap>& a, const std::optional<SpaceMap>& b) {
    if (a.has_value() != b.has_value()) return false;
    return !a || (a->spaces == b->spaces && a->owners == b->owners &&
                  a->fullScreen == b->fullScreen && a->shown == b->shown);
}

/// Whether two readings are of the same state. Which app is in front is told by `frontmostPID`, and
/// some systems make an icon anew each time they are asked.
bool isSameState(RunningApplication a, const RunningApplication& b) {
    a.isActive = b.isActive;
    a.icon = b.icon;
    return a == b;
}

std::string withoutExtension(std::string name, const std::string& url) {
    const auto extension = std::filesystem::path(url).extension().string();
    if (!extension.empty() && name.size() > extension.size() && name.ends_with(extension))
        name.resize(name.size() - extension.size());
    return name;
}

} // namespace

DockStore::DockStore(Scheduler& scheduler, Workspace& workspace, ApplicationControl& applications,
                     Screens& screens, DockPreferences& dock, WindowAnimator& windowAnimator,
                     DiagnosticsLog& log)
    : animator(windowAnimator)
    , scheduler_(scheduler)
    , workspace_(workspace)
    , applications_(applications)
    , screens_(screens)
    , dock_(dock)
    , log_(log) {
    pinnedIDs = pinnedAppIdentifiers(dock_);
    refreshRunning();
}

void DockStore::checkThread() const {
    assert(scheduler_.isMainThread());
}

bool DockStore::refreshRunning() {
    checkThread();
    auto applications = workspace_.runningApplications();
    std::erase_if(applications, [](const RunningApplication& app) {
        return app.activationPolicy != ActivationPolicy::regular || app.isTerminated;
    });
    const bool isChanged = !std::ranges::equal(applications, running, isSameState);
    running = std::move(applications);

    runningPIDs.clear();
    auto idsBefore = std::exchange(runningIDs, {});
    for (const auto& app : running) {
        runningPIDs.push_back(app.pid);
        if (app.bundleIdentifier) runningIDs.insert(*app.bundleIdentifier);
    }
    pruneLaunching(idsBefore);
    keepOnly(seenDisplays, runningPIDs);
    keepOnly(seenSlots, runningPIDs);
    const auto ids = itemIds(running);
    std::erase_if(bouncesSeen, [&](const auto& entry) {
        return std::ranges::find(ids, entry.first) == ids.end();
    });
    for (const auto& id : idsBefore)
        if (!runningIDs.contains(id)) forgetOpened(id);
    return isChanged;
}

void DockStore::pruneLaunching(const std::set<std::string>& idsBefore) {
    auto launching = launchingIDs.get();
    for (const auto& app : running)
        if (app.bundleIdentifier && app.pid >= 1 && app.isFinishedLaunching)
            launching.erase(*app.bundleIdentifier);
    // One that ran and quit again will not finish.
    std::erase_if(launching, [&](const std::string& id) {
        return idsBefore.contains(id) && !runningIDs.contains(id);
    });
    launchingIDs.set(std::move(launching));
}

void DockStore::forgetOpened(const std::string& id) {
    checkThread();
    std::erase_if(openedFromPinned, [&](const OpenedTile& opened) { return opened.id == id; });
}

void DockStore::seeBounces(const std::string& id) {
    checkThread();
    bouncesSeen[id] = scheduler_.uptime();
    auto ids = attentionIDs.get();
    if (ids.erase(id) > 0) attentionIDs.set(std::move(ids));
}

bool DockStore::applyWindowRead(WindowRead read) {
    checkThread();
    if (read.fullScreen != fullScreen) {
        fullScreen = read.fullScreen;
        if (onFullScreenChange) onFullScreenChange(fullScreen);
    }
    frontDisplays.set(std::move(read.frontDisplays));
    frontSpaces.set(std::move(read.frontSpaces));
    const bool hasNewLayout = !haveSameLayout(read.spaceMap, spaceMap);
    spaceMap = std::move(read.spaceMap);
    latestWindows = std::move(read.windows);
    pruneReached();
    unite(seenSlots, read.windowSlots);
    unite(seenDisplays, read.windowDisplays);

    // A new layout moves slots along the bar even when every window stays in its own.
    if (!hasNewLayout && read.windowPIDs == windowPIDs && read.windowDisplays == windowDisplays &&
        read.windowSlots == windowSlots)
        return false;
    logChanges(read, hasNewLayout);
    windowPIDs = std::move(read.windowPIDs);
    windowDisplays = std::move(read.windowDisplays);
    windowSlots = std::move(read.windowSlots);
    return true;
}

void DockStore::logChanges(const WindowRead& read, bool hasNewLayout) {
    if (hasNewLayout) log_.write("windows", "Space layout changed");
    auto line =
        windowChangeLine(windowDisplays, windowSlots, read.windowDisplays, read.windowSlots);
    if (!line.empty()) log_.write("windows", std::move(line));
}

void DockStore::rebuild() {
    checkThread();
    const BarSlots slots(screens_.screens(), spaceMap);
    auto sections = splitRunning(slots);
    auto groups = groupItems(sections.windowApps, slots, *showsEmptyDesktops);
    followMoves(groups);
    windowAppGroups.set(std::move(groups));
    groupedScreens = slots.displays();
    backgroundItems.set(std::move(sections.background));
    pinnedItems.set(makePinnedItems());
    pruneIcons();
}

/// Notes who comes from its pinned tile and who leaves, before the groups are taken over: a view
/// that hears of them finds here how their tiles get there.
void DockStore::followMoves(const std::vector<DisplayGroup>& groups) {
    const auto before = idsOf(*windowAppGroups);
    const auto now = idsOf(groups);
    auto left = leftWindowApps.get();
    std::ranges::set_difference(before, now, std::inserter(left, left.end()));
    std::erase_if(left, [&](const auto& id) { return now.contains(id); });
    auto flying = flyingIn.get();
    std::erase_if(flying, [&](const auto& entry) { return !now.contains(entry.first); });
    for (const auto& opened : openedFromPinned)
        if (now.contains(opened.id)) flying[opened.id] = opened.from;
    std::erase_if(openedFromPinned, [&](const auto& opened) { return now.contains(opened.id); });

    const bool isLeaving = leftWindowApps.set(std::move(left));
    const bool isFlying = flyingIn.set(std::move(flying));
    if (!isLeaving && !isFlying) return;
    movesEnd_ = scheduler_.after(moveTime, [this] {
        leftWindowApps.set({});
        flyingIn.set({});
    });
}

DockStore::Sections DockStore::splitRunning(const BarSlots& slots) {
    std::set<std::string> previousWindowApps;
    // By process: when one copy of an app quits, another takes over its id, not its place.
    std::map<ProcessId, std::set<Slot>> previousSlots;
    for (const auto& group : *windowAppGroups) {
        for (const auto& item : group.items) {
            previousWindowApps.insert(item.id);
            if (item.app) previousSlots[item.app->pid].insert(group.slot);
        }
    }
    std::set<std::string> previousBackground;
    for (const auto& item : *backgroundItems)
        previousBackground.insert(item.id);

    Sections sections;
    auto ids = itemIds(running);
    for (std::size_t i = 0; i < running.size(); ++i) {
        const auto& app = running[i];
        const SectionFacts facts{
            .pid = app.pid,
            .isHidden = app.isHidden,
            .hasWindows = windowPIDs.contains(app.pid),
            .wasWindowApp = previousWindowApps.contains(ids[i]),
            .wasBackgroundApp = previousBackground.contains(ids[i]),
            .isHeld = isPointerOnBar || animator.phase(app.pid) != WindowAnimator::Phase::none ||
                      animator.hasPendingHide(app.pid),
            .mayRegroup = regroupingIDs.contains(ids[i]),
        };
        auto appSlots = slotsForApp(placesOf(app.pid, valueOrNone(previousSlots, app.pid)), slots);
        auto item = makeItem(std::move(ids[i]), &app, urlOf(app));
        // Without a display there is no slot to stand in, but an app that runs stands somewhere.
        if (sectionOf(facts) == Section::background || appSlots.empty())
            sections.background.push_back(std::move(item));
        else
            sections.windowApps.push_back({std::move(item), std::move(appSlots)});
    }
    return sections;
}

AppPlaces DockStore::placesOf(ProcessId pid, std::set<Slot> previous) const {
    return {.slots = valueOrNone(windowSlots, pid),
            .previous = std::move(previous),
            .seenSlots = valueOrNone(seenSlots, pid),
            .seenDisplays = valueOrNone(seenDisplays, pid)};
}

std::vector<DockItem> DockStore::makePinnedItems() {
    std::vector<DockItem> items;
    for (const auto& id : pinnedSection(pinnedIDs))
        if (auto item = makePinnedItem(id)) items.push_back(*std::move(item));
    return items;
}

std::optional<DockItem> DockStore::makePinnedItem(const std::string& id) {
    checkThread();
    const auto* app = runningApplication(id);
    auto url = app ? urlOf(*app) : workspace_.urlForApplication(id);
    if (!app && !url) return std::nullopt;
    return makeItem(id, app, std::move(url));
}

DockItem DockStore::makeItem(std::string id, const RunningApplication* app,
                             std::optional<std::string> url) {
    DockItem item;
    if (app) {
        item.app = *app;
        // Which app is in front is told by `frontmostPID`, and the picture by `icon`. Kept here
        // too, they would make a tile differ from itself at every activation.
        item.app->isActive = false;
        item.app->icon = nullptr;
        item.name = app->localizedName;
    }
    if (item.name.empty() && url) item.name = withoutExtension(workspace_.displayName(*url), *url);
    item.icon = icon(id, url, app);
    item.url = std::move(url);
    item.isPinned = isPinned(id, pinnedIDs);
    item.id = std::move(id);
    return item;
}

std::optional<std::string> DockStore::urlOf(const RunningApplication& app) const {
    if (app.bundleURL || !app.bundleIdentifier) return app.bundleURL;
    return workspace_.urlForApplication(*app.bundleIdentifier);
}

const RunningApplication* DockStore::runningApplication(const std::string& bundleIdentifier) const {
    const auto found = std::ranges::find(running, std::optional(bundleIdentifier),
                                         &RunningApplication::bundleIdentifier);
    return found == running.end() ? nullptr : &*found;
}

const RunningApplication* DockStore::runningApplication(ProcessId pid) const {
    checkThread();
    const auto found = std::ranges::find(running, pid, &RunningApplication::pid);
    return found == running.end() ? nullptr : &*found;
}

void DockStore::pruneReached() {
    if (reachedWindows.empty()) return;
    std::set<WindowId> numbers;
    for (const auto& window : latestWindows)
        numbers.insert(window.id);
    std::erase_if(reachedWindows,
                  [&](const auto& entry) { return !numbers.contains(entry.first); });
}

std::vector<AppWindow> DockStore::windowsOf(ProcessId pid, const DisplayGroup* group,
                                            std::optional<std::vector<AppWindow>> listed) const {
    checkThread();
    // A hung app could raise none of its windows, the reached ones as little as the others.
    if (!listed) return {};
    auto windows = *std::move(listed);
    if (!reachedWindows.empty()) {
        for (const auto& window : latestWindows) {
            const auto reached = reachedWindows.find(window.id);
            if (window.pid != pid || window.isOnScreen || reached == reachedWindows.end() ||
                std::ranges::find(windows, window.id, &AppWindow::id) != windows.end())
                continue;
            windows.push_back({.id = window.id,
                               .element = reached->second,
                               .pid = pid,
                               .title = window.title,
                               .frame = window.bounds,
                               .isOnOtherSpace = true});
        }
    }
    if (!group) return windows;
    return windowsInSlot(std::move(windows), group->slot, spaceMap, screens_.screens());
}

ImageRef DockStore::icon(const std::string& id, const std::optional<std::string>& url,
                         const RunningApplication* app) {
    auto& icon = icons_[id];
    if (!icon && url) icon = workspace_.icon(*url);
    if (!icon && app) icon = app->icon;
    if (!icon) icon = workspace_.genericApplicationIcon();
    return icon;
}

void DockStore::pruneIcons() {
    std::set<std::string_view> shown;
    for (const auto& group : *windowAppGroups)
        for (const auto& item : group.items)
            shown.insert(item.id);
    for (const auto* items : {&*backgroundItems, &*pinnedItems})
        for (const auto& item : *items)
            shown.insert(item.id);
    std::erase_if(icons_, [&](const auto& entry) { return !shown.contains(entry.first); });
}

void DockStore::reloadPinned() {
    checkThread();
    if (pinnedWrite_) return;
    auto ids = pinnedAppIdentifiers(dock_);
    if (ids == pinnedIDs) return;
    pinnedIDs = std::move(ids);
    withAnimation(pinnedListAnimation, [this] { rebuild(); });
}

void DockStore::refreshPinned() {
    checkThread();
    if (makePinnedItems() == *pinnedItems) return;
    withAnimation(pinnedListAnimation, [this] { rebuild(); });
}

void DockStore::setPinned(std::vector<std::string> ids) {
    checkThread();
    pinnedIDs = std::move(ids);
    withAnimation(pinnedListAnimation, [this] { rebuild(); });
    pinnedWrite_ = scheduler_.after(pinnedWriteDelay, [this] { flushPinned(); });
}

void DockStore::flushPinned() {
    checkThread();
    if (!pinnedWrite_) return;
    writePinnedApps(dock_, workspace_, applications_, pinnedIDs);
    pinnedWrite_.reset();
    // What else was changed in it while ours waited is lost, but not all of ours may be kept.
    reloadPinned();
}

} // namespace larkspan
