#include "soak/day/Watch.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>
#include <fmt/ranges.h>

namespace larkspan::soak {

namespace {

/// The time that `IconClick` gives an app to appear, and one more turn.
constexpr double longestLaunch = 30.1;

DockProfile profileOf(const sim::DockSettings& dock) {
    return {dock.tileSize, dock.autoHide, dock.place.orientation, dock.place.pinning,
            dock.magnification};
}

/// Smaller differences of the size are not sent to the Dock.
bool isSameDock(const DockProfile& a, const DockProfile& b) {
    auto other = b;
    other.tileSize = a.tileSize;
    return a == other && std::abs(a.tileSize - b.tileSize) <= 0.002F;
}

MaybeFailure idsAreUnique(const std::vector<DockItem>& items, std::set<std::string>& ids,
                          const char* section) {
    for (const auto& item : items)
        if (!ids.insert(item.id).second)
            return Failure{"an id is unique in its list",
                           fmt::format("{} in {}", item.id, section)};
    return std::nullopt;
}

} // namespace

MaybeFailure listsAreSound(const DockStore& store) {
    std::set<std::string> pinned;
    if (auto failure = idsAreUnique(*store.pinnedItems(), pinned, "the pinned section"))
        return failure;
    if (store.pinnedItems()->empty() || store.pinnedItems()->front().id != finderIdentifier)
        return Failure{"the Finder is first", {}};
    std::set<std::string> background;
    if (auto failure = idsAreUnique(*store.backgroundItems(), background, "the background"))
        return failure;
    std::set<Slot> slots;
    for (const auto& group : *store.windowAppGroups()) {
        if (!slots.insert(group.slot).second) return Failure{"a slot has one group", {}};
        std::set<std::string> ids;
        if (auto failure = idsAreUnique(group.items, ids, "a group")) return failure;
        for (const auto& id : ids)
            if (background.contains(id)) return Failure{"an app is in one section", id};
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

MaybeFailure Watch::afterStep() {
    if (!day_.mac.world().missingFunctions.empty())
        lacksDockFunctions_ = true;
    else if (!day_.controller())
        lacksDockFunctions_ = false;

    auto now = look();
    followLaunching();
    MaybeFailure failure;
    if (now.run) failure = ofProgram(now);
    if (!failure) failure = dockGivenBack(now);
    if (!failure) failure = oneRead(now);
    const auto* bars = now.run ? day_.controller()->bars() : nullptr;
    if (!failure)
        failure = require(day_.panels.size() == (bars ? bars->bars().size() : 0),
                          "a panel goes with its bar");
    before_ = std::move(now);
    return failure;
}

MaybeFailure Watch::ofProgram(const Moment& now) {
    if (auto failure = listsAreSound(day_.controller()->store())) return failure;
    if (now.run != before_.run) return std::nullopt;
    if (auto failure = sectionsKept(now)) return failure;
    return pinsKept(now);
}

MaybeFailure Watch::sectionsKept(const Moment& now) const {
    if (!before_.isPointerOnBar || !now.isPointerOnBar) return std::nullopt;
    // Without a screen there is no group and no pointer.
    if (before_.isWithoutDisplay || now.isWithoutDisplay) return std::nullopt;
    for (const auto& [tile, isWindowApp] : before_.isWindowApp) {
        const auto found = now.isWindowApp.find(tile);
        if (found == now.isWindowApp.end() || found->second == isWindowApp) continue;
        // The user asked for this one.
        if (now.regrouping.contains(tile.first) || before_.regrouping.contains(tile.first))
            continue;
        return Failure{"no tile changes its section under the pointer", tile.first};
    }
    return std::nullopt;
}

MaybeFailure Watch::pinsKept(const Moment& now) const {
    return require(now.pinned == before_.pinned || day_.pinActs != pinActsAtRest_,
                   "only the user changes the pinned order",
                   fmt::format("[{}] became [{}]", fmt::join(before_.pinned, " "),
                               fmt::join(now.pinned, " ")));
}

MaybeFailure Watch::dockGivenBack(const Moment& now) const {
    if (lacksDockFunctions_) return std::nullopt;
    if (now.run) {
        const bool isHeld = day_.controller()->mode() == BarMode::vantrel;
        if (now.savedProfile.has_value() != isHeld)
            return Failure{"the Dock's profile is saved exactly while the bar is in use",
                           isHeld ? "not saved" : "still saved"};
    }
    if (!before_.savedProfile && now.savedProfile)
        return require(*now.savedProfile == profileOf(before_.dock),
                       "the saved profile is the user's own");
    if (before_.savedProfile && !now.savedProfile)
        return require(isSameDock(*before_.savedProfile, profileOf(now.dock)),
                       "the Dock is restored");
    if (before_.savedProfile)
        return require(before_.savedProfile == now.savedProfile, "a saved profile does not change");
    return std::nullopt;
}

MaybeFailure Watch::oneRead(const Moment& now) {
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

MaybeFailure Watch::atRest() {
    pinActsAtRest_ = day_.pinActs;
    for (const auto& [id, since] : launchingSince_)
        if (day_.mac.scheduler.uptime() - since > longestLaunch)
            return Failure{"a launching mark ends", id};
    return std::nullopt;
}

} // namespace larkspan::soak
