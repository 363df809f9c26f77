#include "model/BadgeRefresh.h"

#include "dock/DockProfile.h"
#include "dock/dockProcess.h"
#include "model/ItemIdentity.h"

#include <fmt/format.h>

#include <algorithm>
#include <deque>
#include <utility>

namespace larkspan {

namespace {

constexpr double bounceInterval = 0.25;
/// The number of bounce reads per read of the labels, which is once a second.
constexpr std::size_t ticksPerBadges = 4;
/// The seconds that an icon may take to land after its app has started or come forward.
constexpr double landingTime = 1.0;
/// The longest pause between two bounces of one request, in seconds: after that it has ended.
constexpr double longestRest = 3.0;
constexpr const char* badgeQueue = "dock items";
constexpr const char* badgeCategory = "badges";

std::map<std::string, std::deque<std::string>> idsByPath(const DockStore& store) {
    std::map<std::string, std::deque<std::string>> ids;
    auto runningIds = itemIds(store.running());
    for (std::size_t i = 0; i < store.running().size(); ++i)
        if (const auto& path = store.running()[i].bundleURL)
            ids[*path].push_back(std::move(runningIds[i]));
    for (const auto& item : *store.pinnedItems())
        if (!item.app && item.url) ids[*item.url].push_back(item.id);
    return ids;
}

} // namespace

BadgeRefresh::BadgeRefresh(DockStore& store, Scheduler& scheduler, Workspace& workspace,
                           const Accessibility& accessibility, const CoreDock& dock,
                           AppNotices& notices, DiagnosticsLog& log)
    : store_(store)
    , scheduler_(scheduler)
    , workspace_(workspace)
    , dock_(dock)
    , log_(log)
    , reader_(std::make_shared<DockItemsReader>(accessibility)) {
    if (!notices.announcesChanges()) {
        source_ = scheduler.every(bounceInterval, [this] { tick(); });
        return;
    }
    source_ = notices.subscribe([this, &notices] { takeNotices(notices.notices()); });
    takeNotices(notices.notices());
}

void BadgeRefresh::tick() {
    if (isReading_) return;
    const auto depth = ticks_++ % ticksPerBadges == 0 ? Depth::all : Depth::frames;
    // If the Dock did not respond, or has quit, it is looked for when labels are read.
    if (!dockPid_ && depth == Depth::all) dockPid_ = dockProcess(workspace_);
    if (dockPid_) read(depth);
    // Requests also end while the Dock does not respond.
    dropOldBounces();
    updateAttention();
}

void BadgeRefresh::read(Depth depth) {
    isReading_ = true;
    scheduler_.queue(badgeQueue)
        .post([this, &scheduler = scheduler_, reader = reader_, pid = *dockPid_, depth,
               alive = std::weak_ptr(alive_)] {
            auto icons = depth == Depth::all ? reader->read(pid) : reader->readFrames();
            scheduler.post([this, icons = std::move(icons), depth, alive] {
                if (!alive.expired()) readFinished(icons, depth);
            });
        });
}

void BadgeRefresh::readFinished(const Icons& icons, Depth depth) {
    isReading_ = false;
    if (!icons && depth == Depth::frames) return; // An icon went; the next whole read tells which.
    if (!icons) {
        dockPid_.reset();
        if (!std::exchange(hasComplained_, true))
            log_.write(badgeCategory, "the Dock's icons cannot be read; badges stay as they were");
        return;
    }
    if (depth == Depth::all) noteBadges(*icons);
    if (std::exchange(hasComplained_, false))
        log_.write(badgeCategory, "the Dock's icons can be read again");
    // An icon of a Dock at a side bounces sideways, which is not detected: under the bar, the Dock
    // is at the bottom.
    const bool isAtBottom = !dock_.has(CoreDockFunction::getOrientationAndPinning) ||
                            dock_.orientationAndPinning().orientation == DockProfile::bottom;
    if (isAtBottom) noteBounces(*icons);
    updateAttention();
}

/// The item of each icon. Two processes of one bundle have an icon each, in the order in which they
/// were started.
std::vector<std::optional<std::string>>
BadgeRefresh::idsOf(const std::vector<DockIcon>& icons) const {
    auto left = idsByPath(store_);
    std::vector<std::optional<std::string>> ids;
    for (const auto& icon : icons) {
        auto& candidates = left[icon.path];
        ids.emplace_back();
        if (candidates.empty()) continue;
        ids.back() = std::move(candidates.front());
        candidates.pop_front();
    }
    return ids;
}

void BadgeRefresh::noteBadges(const std::vector<DockIcon>& icons) {
    const auto ids = idsOf(icons);
    std::map<std::string, std::string> badges;
    for (std::size_t i = 0; i < icons.size(); ++i)
        if (ids[i] && !icons[i].badge.empty()) badges[*ids[i]] = icons[i].badge;
    setBadges(std::move(badges));
}

void BadgeRefresh::setBadges(std::map<std::string, std::string> badges) {
    const auto before = *store_.badges();
    store_.badgesChanged(std::move(badges));
    for (const auto& [id, text] : *store_.badges())
        if (const auto old = before.find(id); old == before.end() || old->second != text)
            log_.write(badgeCategory, fmt::format("badge of {} is {}", id, text));
    for (const auto& [id, text] : before)
        if (!store_.badges()->contains(id))
            log_.write(badgeCategory, fmt::format("{} has no badge", id));
}

/// Bounces of an app that is starting or in front are not requests for attention.
void BadgeRefresh::seeApps() {
    const auto ids = itemIds(store_.running());
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const auto& app = store_.running()[i];
        if (!app.isFinishedLaunching || app.pid == *store_.frontmostPID())
            store_.acknowledgeAttention(ids[i]);
    }
}

void BadgeRefresh::noteBounces(const std::vector<DockIcon>& icons) {
    seeApps();
    const auto running = itemIds(store_.running());
    const auto ids = idsOf(icons);
    const double now = scheduler_.uptime();
    for (const std::size_t i : liftedIcons(icons)) {
        // An app that is not in the list yet is about to start.
        if (!ids[i] || std::ranges::find(running, *ids[i]) == running.end()) continue;
        const auto seen = store_.attentionAcknowledged(*ids[i]);
        if (!seen || now - *seen >= landingTime) requests_[*ids[i]] = now;
    }
}

void BadgeRefresh::dropOldBounces() {
    const auto running = itemIds(store_.running());
    const double oldest = scheduler_.uptime() - longestRest;
    std::erase_if(requests_, [&](const auto& request) {
        return request.second < oldest ||
               std::ranges::find(running, request.first) == running.end();
    });
}

void BadgeRefresh::takeNotices(const std::vector<AppNotice>& notices) {
    seeApps();
    std::map<std::string, std::string> badges;
    auto before = std::exchange(requests_, {});
    for (const auto& notice : notices) {
        if (!notice.badge.empty()) badges[notice.bundleIdentifier] = notice.badge;
        if (!notice.wantsAttention) continue;
        const auto known = before.find(notice.bundleIdentifier);
        requests_[notice.bundleIdentifier] =
            known == before.end() ? scheduler_.uptime() : known->second;
    }
    setBadges(std::move(badges));
    updateAttention();
}

void BadgeRefresh::updateAttention() {
    std::set<std::string> ids;
    for (const auto& [id, since] : requests_) {
        const auto seen = store_.attentionAcknowledged(id);
        if (!seen || *seen < since) ids.insert(id);
    }
    for (const auto& id : ids)
        if (!store_.attentionIDs()->contains(id))
            log_.write(badgeCategory, fmt::format("{} wants attention", id));
    store_.attentionChanged(std::move(ids));
}

} // namespace larkspan
