#include "model/DockStore.h"

#include "dock/PinnedApps.h"
#include "model/Classification.h"
#include "model/ItemIdentity.h"
#include "model/PinnedSection.h"
#include "model/WindowChangeLine.h"
#include "spaces/SlotWindows.h"

#include <algorithm>
#include <cassert>
#include <iterator>
#include <utility>

namespace larkspan {

namespace {

constexpr double pinnedWriteDelay = 1.0;
/// The longest time of a tile's move, in seconds.
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
void keepOnly(std::map<ProcessId, Value>& map, const std::set<ProcessId>& pids) {
    std::erase_if(map, [&](const auto& entry) { return !pids.contains(entry.first); });
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

/// Whether two readings have the same state. `frontmostPID` has the frontmost app, and some systems
/// create a new icon for each call.
bool isSameState(RunningApplication a, const RunningApplication& b) {
    a.isActive = b.isActive;
    a.icon = b.icon;
    return a == b;
}

} // namespace

DockStore::DockStore(Scheduler& scheduler, Workspace& workspace, ApplicationControl& applications,
                     Screens& screens, DockPreferences& dock, WindowAnimator& animator,
                     DiagnosticsLog& log)
    : scheduler_(scheduler)
    , workspace_(workspace)
    , applications_(applications)
    , screens_(screens)
    , dock_(dock)
    , animator_(animator)
    , log_(log)
    , items_(workspace) {
    pinnedIDs_ = pinnedAppIdentifiers(dock_);
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
    const bool isChanged = !std::ranges::equal(applications, running_, isSameState);
    running_ = std::move(applications);

    std::set<ProcessId> runningPIDs;
    auto idsBefore = std::exchange(runningIDs_, {});
    for (const auto& app : running_) {
        runningPIDs.insert(app.pid);
        if (app.bundleIdentifier) runningIDs_.insert(*app.bundleIdentifier);
    }
    pruneLaunching(idsBefore);
    keepOnly(seenDisplays_, runningPIDs);
    keepOnly(seenSlots_, runningPIDs);
    const auto ids = itemIds(running_);
    std::erase_if(attentionAcknowledged_, [&](const auto& entry) {
        return std::ranges::find(ids, entry.first) == ids.end();
    });
    for (const auto& id : idsBefore)
        if (!runningIDs_.contains(id)) forgetOpened(id);
    return isChanged;
}

void DockStore::pruneLaunching(const std::set<std::string>& idsBefore) {
    auto launching = launchingIDs_.get();
    for (const auto& app : running_)
        if (app.bundleIdentifier && app.pid >= 1 && app.isFinishedLaunching)
            launching.erase(*app.bundleIdentifier);
    // An app that has quit again will not finish launching.
    std::erase_if(launching, [&](const std::string& id) {
        return idsBefore.contains(id) && !runningIDs_.contains(id);
    });
    launchingIDs_.set(std::move(launching));
}

void DockStore::launchBegan(const DockItem& item, const Rect& tileFrame) {
    checkThread();
    auto launching = launchingIDs_.get();
    launching.insert(item.id);
    launchingIDs_.set(std::move(launching));
    if (item.isPinned) openedFromPinned_.push_back({item.id, tileFrame});
}

void DockStore::launchFailed(const std::string& id) {
    checkThread();
    forgetOpened(id);
    auto launching = launchingIDs_.get();
    launching.erase(id);
    launchingIDs_.set(std::move(launching));
}

void DockStore::forgetOpened(const std::string& id) {
    std::erase_if(openedFromPinned_, [&](const OpenedTile& opened) { return opened.id == id; });
}

void DockStore::acknowledgeAttention(const std::string& id) {
    checkThread();
    attentionAcknowledged_[id] = scheduler_.uptime();
    auto ids = attentionIDs_.get();
    ids.erase(id);
    attentionIDs_.set(std::move(ids));
}

std::optional<double> DockStore::attentionAcknowledged(const std::string& id) const {
    const auto found = attentionAcknowledged_.find(id);
    return found == attentionAcknowledged_.end() ? std::nullopt : std::optional(found->second);
}

bool DockStore::pointerOnBarChanged(bool isOnBar) {
    checkThread();
    if (std::exchange(isPointerOnBar_, isOnBar) == isOnBar) return false;
    if (!isOnBar) regroupingIDs_.clear();
    return true;
}

void DockStore::allowRegroup(const std::string& id) {
    checkThread();
    if (!isPointerOnBar_ || !regroupingIDs_.insert(id).second) return;
    // There may be no other event that moves the tile: its app's window may already be there. In a
    // separate turn, since the caller may hold an item of the lists.
    regroup_ = scheduler_.after(0, [this] { rebuild(windowReadAnimation); });
}

bool DockStore::applyWindowRead(WindowRead read) {
    checkThread();
    if (read.fullScreen != fullScreen_) {
        fullScreen_ = read.fullScreen;
        if (onFullScreenChange) onFullScreenChange(fullScreen_);
    }
    frontDisplays_.set(std::move(read.frontDisplays));
    frontSpaces_.set(std::move(read.frontSpaces));
    const bool hasNewLayout = !haveSameLayout(read.spaceMap, spaceMap_);
    spaceMap_ = std::move(read.spaceMap);
    latestWindows_ = std::move(read.windows);
    pruneReached();
    unite(seenSlots_, read.windowSlots);
    unite(seenDisplays_, read.windowDisplays);

    // A new layout moves slots along the bar even if every window stays in its slot.
    if (!hasNewLayout && read.windowPIDs == windowPIDs_ && read.windowDisplays == windowDisplays_ &&
        read.windowSlots == windowSlots_)
        return false;
    logChanges(read, hasNewLayout);
    windowPIDs_ = std::move(read.windowPIDs);
    windowDisplays_ = std::move(read.windowDisplays);
    windowSlots_ = std::move(read.windowSlots);
    return true;
}

void DockStore::logChanges(const WindowRead& read, bool hasNewLayout) {
    if (hasNewLayout) log_.write("windows", "Space layout changed");
    auto line =
        windowChangeLine(windowDisplays_, windowSlots_, read.windowDisplays, read.windowSlots);
    if (!line.empty()) log_.write("windows", std::move(line));
}

void DockStore::rebuild(std::optional<Animation> animation) {
    checkThread();
    animation_ = animation;
    const BarSlots slots(screens_.screens(), spaceMap_);
    auto sections = splitRunning(slots);
    auto groups = groupItems(sections.windowApps, slots, *showsEmptyDesktops_);
    followMoves(groups);
    windowAppGroups_.set(std::move(groups));
    groupedScreens_ = slots.displays();
    backgroundItems_.set(std::move(sections.background));
    pinnedItems_.set(makePinnedItems());
    animation_.reset();
    pruneIcons();
}

/// Records which apps come from their pinned tile and which leave, before the groups change, so
/// that observers of the groups know how to animate their tiles.
void DockStore::followMoves(const std::vector<DisplayGroup>& groups) {
    const auto before = idsOf(*windowAppGroups_);
    const auto now = idsOf(groups);
    auto left = leftWindowApps_.get();
    std::ranges::set_difference(before, now, std::inserter(left, left.end()));
    std::erase_if(left, [&](const auto& id) { return now.contains(id); });
    auto flying = flyingIn_.get();
    std::erase_if(flying, [&](const auto& entry) { return !now.contains(entry.first); });
    for (const auto& opened : openedFromPinned_)
        if (now.contains(opened.id)) flying[opened.id] = opened.from;
    std::erase_if(openedFromPinned_, [&](const auto& opened) { return now.contains(opened.id); });

    const bool isLeaving = leftWindowApps_.set(std::move(left));
    const bool isFlying = flyingIn_.set(std::move(flying));
    if (!isLeaving && !isFlying) return;
    movesEnd_ = scheduler_.after(moveTime, [this] {
        leftWindowApps_.set({});
        flyingIn_.set({});
    });
}

DockStore::Sections DockStore::splitRunning(const BarSlots& slots) {
    std::set<std::string> previousWindowApps;
    // By process: when one copy of an app quits, another takes over its id, but not its place.
    std::map<ProcessId, std::set<Slot>> previousSlots;
    for (const auto& group : *windowAppGroups_) {
        for (const auto& item : group.items) {
            previousWindowApps.insert(item.id);
            if (item.app) previousSlots[item.app->pid].insert(group.slot);
        }
    }
    std::set<std::string> previousBackground;
    for (const auto& item : *backgroundItems_)
        previousBackground.insert(item.id);

    Sections sections;
    auto ids = itemIds(running_);
    for (std::size_t i = 0; i < running_.size(); ++i) {
        const auto& app = running_[i];
        const SectionFacts facts{
            .pid = app.pid,
            .isHidden = app.isHidden,
            .hasWindows = windowPIDs_.contains(app.pid),
            .wasWindowApp = previousWindowApps.contains(ids[i]),
            .wasBackgroundApp = previousBackground.contains(ids[i]),
            .isHeld = isPointerOnBar_ || animator_.phase(app.pid) != WindowAnimator::Phase::none ||
                      animator_.hasPendingHide(app.pid),
            .mayRegroup = regroupingIDs_.contains(ids[i]),
        };
        auto appSlots = slotsForApp(placesOf(app.pid, valueOrNone(previousSlots, app.pid)), slots);
        auto item = *items_.make(ids[i], &app, isPinned(ids[i], pinnedIDs_));
        // Without a display there is no slot, but a running app must be in some section.
        if (sectionOf(facts) == Section::background || appSlots.empty())
            sections.background.push_back(std::move(item));
        else
            sections.windowApps.push_back({std::move(item), std::move(appSlots)});
    }
    return sections;
}

AppPlaces DockStore::placesOf(ProcessId pid, std::set<Slot> previous) const {
    return {.slots = valueOrNone(windowSlots_, pid),
            .previous = std::move(previous),
            .seenSlots = valueOrNone(seenSlots_, pid),
            .seenDisplays = valueOrNone(seenDisplays_, pid)};
}

std::vector<DockItem> DockStore::makePinnedItems() {
    std::vector<DockItem> items;
    for (const auto& id : pinnedSection(pinnedIDs_))
        if (auto item = makePinnedItem(id)) items.push_back(*std::move(item));
    return items;
}

std::optional<DockItem> DockStore::makePinnedItem(const std::string& id) {
    checkThread();
    return items_.make(id, runningApplication(id), isPinned(id, pinnedIDs_));
}

const RunningApplication* DockStore::runningApplication(const std::string& bundleIdentifier) const {
    const auto found = std::ranges::find(running_, std::optional(bundleIdentifier),
                                         &RunningApplication::bundleIdentifier);
    return found == running_.end() ? nullptr : &*found;
}

const RunningApplication* DockStore::runningApplication(ProcessId pid) const {
    checkThread();
    const auto found = std::ranges::find(running_, pid, &RunningApplication::pid);
    return found == running_.end() ? nullptr : &*found;
}

void DockStore::windowsReached(const std::vector<AppWindow>& windows) {
    checkThread();
    for (const auto& window : windows)
        reachedWindows_[window.id] = window.element;
}

void DockStore::pruneReached() {
    if (reachedWindows_.empty()) return;
    std::set<WindowId> numbers;
    for (const auto& window : latestWindows_)
        numbers.insert(window.id);
    std::erase_if(reachedWindows_,
                  [&](const auto& entry) { return !numbers.contains(entry.first); });
}

std::vector<AppWindow> DockStore::windowsOf(ProcessId pid, const DisplayGroup* group,
                                            std::optional<std::vector<AppWindow>> listed) const {
    checkThread();
    // A hung app could not raise any of its windows, including the reached ones.
    if (!listed) return {};
    auto windows = *std::move(listed);
    if (!reachedWindows_.empty()) {
        for (const auto& window : latestWindows_) {
            const auto reached = reachedWindows_.find(window.id);
            if (window.pid != pid || window.isOnScreen || reached == reachedWindows_.end() ||
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
    return windowsInSlot(std::move(windows), group->slot, spaceMap_, screens_.screens());
}

void DockStore::pruneIcons() {
    std::set<std::string_view> shown;
    for (const auto& group : *windowAppGroups_)
        for (const auto& item : group.items)
            shown.insert(item.id);
    for (const auto* items : {&*backgroundItems_, &*pinnedItems_})
        for (const auto& item : *items)
            shown.insert(item.id);
    items_.keepIcons(shown);
}

void DockStore::reloadPinned() {
    checkThread();
    if (pinnedWrite_) return;
    auto ids = pinnedAppIdentifiers(dock_);
    if (ids == pinnedIDs_) return;
    pinnedIDs_ = std::move(ids);
    rebuild(pinnedListAnimation);
}

void DockStore::refreshPinned() {
    checkThread();
    if (makePinnedItems() == *pinnedItems_) return;
    rebuild(pinnedListAnimation);
}

void DockStore::setPinned(std::vector<std::string> ids) {
    checkThread();
    pinnedIDs_ = std::move(ids);
    rebuild(pinnedListAnimation);
    pinnedWrite_ = scheduler_.after(pinnedWriteDelay, [this] { flushPinned(); });
}

void DockStore::flushPinned() {
    checkThread();
    if (!pinnedWrite_) return;
    writePinnedApps(dock_, workspace_, applications_, pinnedIDs_);
    pinnedWrite_.reset();
    // Changes made elsewhere during our wait are lost, but some of ours may not be accepted either.
    reloadPinned();
}

} // namespace larkspan
