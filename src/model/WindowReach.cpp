#include "model/WindowReach.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace larkspan {

namespace {

constexpr const char* reachQueue = "window reach";

std::set<WindowId> without(const std::set<WindowId>& all, const std::set<WindowId>& others) {
    std::set<WindowId> rest;
    std::ranges::set_difference(all, others, std::inserter(rest, rest.end()));
    return rest;
}

std::set<WindowId> numbersOnScreen(const std::vector<WindowInfo>& windows) {
    std::set<WindowId> numbers;
    for (const auto& window : windows)
        if (window.isOnScreen) numbers.insert(window.id);
    return numbers;
}

} // namespace

WindowReach::WindowReach(DockStore& store, Scheduler& scheduler, const Accessibility& accessibility,
                         std::function<void()> closedChanged)
    : store_(store)
    , scheduler_(scheduler)
    , accessibility_(accessibility)
    , closedChanged_(std::move(closedChanged)) {}

void WindowReach::follow(const std::vector<WindowInfo>& unconfirmed) {
    if (unconfirmed.empty() && apps_.empty()) return;
    const bool mayAsk = accessibility_.isProcessTrusted();
    std::map<ProcessId, std::vector<WindowInfo>> windows;
    for (const auto& window : unconfirmed)
        if (mayAsk && window.id != 0 && !window.title.empty())
            windows[window.pid].push_back(window);
    std::set<ProcessId> pids;
    for (const auto& entry : windows)
        pids.insert(entry.first);
    forgetOthers(pids);

    for (auto& [pid, own] : windows) {
        auto& app = apps_[pid];
        // A window on screen is not closed.
        app.closed = without(app.closed, numbersOnScreen(own));
        std::set<WindowId> listed;
        for (const auto& window : own)
            listed.insert(window.id);
        if (!app.check.holds(listed, scheduler_.uptime()) && !reaching_.contains(pid))
            visit(pid, std::move(own));
    }
}

void WindowReach::forgetOthers(const std::set<ProcessId>& pids) {
    std::erase_if(apps_, [&](const auto& entry) { return !pids.contains(entry.first); });
}

void WindowReach::visit(ProcessId pid, std::vector<WindowInfo> windows) {
    reaching_.insert(pid);
    auto known = numbersOnScreen(windows);
    for (const auto& window : windows)
        if (store_.reachedWindows().contains(window.id)) known.insert(window.id);
    auto task = [&accessibility = accessibility_, &clock = scheduler_, pid,
                 known = std::move(known), earlier = apps_[pid], windows = std::move(windows)] {
        Visit visit;
        visit.check = WindowPresence::closedChecks(accessibility, windows, {pid}, {}, clock)[pid];
        visit.sought = without(visit.check.hidden, known);
        if (visit.check.listed == earlier.check.listed)
            visit.sought = without(visit.sought, earlier.missed);
        if (!visit.sought.empty())
            visit.search =
                WindowPresence::windowsOnOtherSpaces(accessibility, pid, clock, visit.sought);
        return visit;
    };
    scheduler_.queue(reachQueue)
        .post([this, &scheduler = scheduler_, task = std::move(task), pid,
               alive = std::weak_ptr(alive_)] {
            scheduler.post([this, result = task(), pid, alive] {
                if (!alive.expired()) finished(pid, result);
            });
        });
}

void WindowReach::finished(ProcessId pid, const Visit& visit) {
    reaching_.erase(pid);
    const auto found = apps_.find(pid);
    if (found == apps_.end()) return;
    const auto closedBefore = closed();
    auto& app = found->second;
    if (visit.check.listed != app.check.listed) app = {};
    app.check = visit.check;

    auto missed = visit.sought;
    store_.windowsReached(visit.search.windows);
    for (const auto& window : visit.search.windows)
        missed.erase(window.id);
    app.missed.insert(missed.begin(), missed.end());
    if (visit.search.isConclusive) app.closed.merge(missed);
    const auto confirmed = without(app.missed, app.check.hidden);
    app.missed = without(app.missed, confirmed);
    app.closed = without(app.closed, confirmed);
    if (closed() != closedBefore) closedChanged_();
}

std::set<WindowId> WindowReach::closed() const {
    std::set<WindowId> closed;
    for (const auto& [pid, app] : apps_)
        closed.insert(app.closed.begin(), app.closed.end());
    return closed;
}

} // namespace larkspan
