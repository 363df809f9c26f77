#include "soak/day/Watch.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace larkspan::soak {

namespace {

/// What `IconClick` grants an app to appear, and a turn more.
constexpr double longestLaunch = 30.1;

DockProfile profileOf(const sim::DockSettings& dock) {
    return {dock.tileSize, dock.autoHide, dock.place.orientation, dock.place.pinning,
            dock.magnification};
}

/// Sizes that differ by less are not told to the Dock.
bool isSameDock(const DockProfile& a, const DockProfile& b) {
    auto other = b;
    other.tileSize = a.tileSize;
    return a == other && std::abs(a.tileSize - b.tileSize) <= 0.002F;
}

Verdict idsAreUnique(const std::vector<DockItem>& items, std::set<std::string>& ids,
                     const char* section) {
    for (const auto& item : items)
        if (!ids.insert(item.id).second)
            return Complaint{"an id stands once in a list",
                             fmt::format("{} in {}", item.id, section)};
    return std::nullopt;
}

} // namespace

Verdict listsAreSound(const DockStore& store) {
    std::set<std::string> pinned;
    if (auto complaint = idsAreUnique(*store.pinnedItems(), pinned, "the pinned section"))
        return complaint;
    if (store.pinnedItems()->empty() || store.pinnedItems()->front().id != finderIdentifier)
        return Complaint{"the Finder is first", {}};
    std::set<std::string> background;
    if (auto complaint = idsAreUnique(*store.backgroundItems(), background, "the background"))
        return complaint;
    std::set<Slot> slots;
    for (const auto& group : *store.windowAppGroups()) {
        if (!slots.insert(group.slot).second) return Complaint{"a slot has one group", {}};
        std::set<std::string> ids;
        if (auto complaint = idsAreUnique(group.items, ids, "a group")) return complaint;
        for (const auto& id : ids)
            if (background.contains(id)) return Complaint{"an app is in one section", id};
    }
    return std::nullopt;
}

Watch::Watch(Day& day)
    : day_(day)
    , before_(look()) {}

Watch::Moment Watch::look() const {
    Moment now;
    now.savedProfile = DockProfile::saved(day_.mac.defaults);
    now.dock = day_.mac.world().dock;
    now.isWithoutDisplay = day_.mac.world().displays.empty();
    const auto* controller = day_.controller();
    if (!controller) return now;
    now.run = day_.runsEnded;
    const auto& store = controller->store();
    now.isPointerOnBar = store.isPointerOnBar();
    now.regrouping = store.regroupingIDs();
    now.pinned = store.pinnedIDs();
    for (const auto& group : *store.windowAppGroups())
        for (const auto& item : group.items)
            now.isWindowApp[{item.id, item.app->pid}] = true;
    for (const auto& item : *store.backgroundItems())
        now.isWindowApp[{item.id, item.app->pid}] = false;
    return now;
}

Verdict Watch::afterStep() {
    if (!day_.mac.world().missingFunctions.empty())
        lacksDockFunctions_ = true;
    else if (!day_.controller())
        lacksDockFunctions_ = false;

    auto now = look();
    followLaunching();
    Verdict verdict;
    if (now.run) verdict = ofProgram(now);
    if (!verdict) verdict = dockGivenBack(now);
    if (!verdict) verdict = oneRead(now);
    const auto* bars = now.run ? day_.controller()->bars() : nullptr;
    if (!verdict)
        verdict = require(day_.panels.size() == (bars ? bars->bars().size() : 0),
                          "a panel goes with its bar");
    before_ = std::move(now);
    return verdict;
}

Verdict Watch::ofProgram(const Moment& now) {
    if (auto verdict = listsAreSound(day_.controller()->store())) return verdict;
    if (now.run != before_.run) return std::nullopt;
    if (auto verdict = sectionsKept(now)) return verdict;
    return pinsKept(now);
}

Verdict Watch::sectionsKept(const Moment& now) const {
    if (!before_.isPointerOnBar || !now.isPointerOnBar) return std::nullopt;
    // Without a screen there is no group to stand in, and no pointer.
    if (before_.isWithoutDisplay || now.isWithoutDisplay) return std::nullopt;
    for (const auto& [tile, isWindowApp] : before_.isWindowApp) {
        const auto found = now.isWindowApp.find(tile);
        if (found == now.isWindowApp.end() || found->second == isWindowApp) continue;
        // The user asked for this one.
        if (now.regrouping.contains(tile.first) || before_.regrouping.contains(tile.first))
            continue;
        return Complaint{"no tile changes its section under the pointer", tile.first};
    }
    return std::nullopt;
}

Verdict Watch::pinsKept(const Moment& now) const {
    return require(now.pinned == before_.pinned || day_.pinActs != pinActsAtRest_,
                   "the pinned order changes only by a user's act",
                   fmt::format("[{}] became [{}]", fmt::join(before_.pinned, " "),
                               fmt::join(now.pinned, " ")));
}

Verdict Watch::dockGivenBack(const Moment& now) const {
    if (lacksDockFunctions_) return std::nullopt;
    if (now.run) {
        const bool isHeld = day_.controller()->mode() == BarMode::vantrel;
        if (now.savedProfile.has_value() != isHeld)
            return Complaint{"the Dock's profile is saved exactly while the bar is in use",
                             isHeld ? "not saved" : "still saved"};
    }
    if (!before_.savedProfile && now.savedProfile)
        return require(*now.savedProfile == profileOf(before_.dock),
                       "the profile saved is the user's own");
    if (before_.savedProfile && !now.savedProfile)
        return require(isSameDock(*before_.savedProfile, profileOf(now.dock)),
                       "the Dock is put back as it was");
    if (before_.savedProfile)
        return require(before_.savedProfile == now.savedProfile, "a saved profile stays");
    return std::nullopt;
}

Verdict Watch::oneRead(const Moment& now) {
    const auto reads = day_.mac.scheduler.waitingTasks("windows");
    orphanedReads_ = std::min(orphanedReads_, reads);
    if (now.run != before_.run) orphanedReads_ = reads;
    return require(reads <= orphanedReads_ + 1, "at most one read is in flight");
}

void Watch::followLaunching() {
    const auto launching =
        day_.controller() ? *day_.controller()->store().launchingIDs() : std::set<std::string>{};
    std::erase_if(launchingSince_,
                  [&](const auto& entry) { return !launching.contains(entry.first); });
    for (const auto& id : launching)
        launchingSince_.try_emplace(id, day_.mac.scheduler.uptime());
}

Verdict Watch::atRest() {
    pinActsAtRest_ = day_.pinActs;
    for (const auto& [id, since] : launchingSince_)
        if (day_.mac.scheduler.uptime() - since > longestLaunch)
            return Complaint{"a launching mark ends", id};
    return std::nullopt;
}

} // namespace larkspan::soak
