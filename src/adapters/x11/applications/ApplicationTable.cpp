#include "adapters/x11/applications/ApplicationTable.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace larkspan::x11 {

namespace {

// Linux process numbers are below 2^22.
constexpr ProcessId firstMadeUpNumber = ProcessId{1} << 30;

} // namespace

ApplicationTable::ApplicationTable(Scheduler& scheduler, FindEntry findEntry, WatchExit watchExit)
    : scheduler_(scheduler)
    , findEntry_(std::move(findEntry))
    , watchExit_(std::move(watchExit))
    , nextMadeUp_(firstMadeUpNumber) {}

ProcessId ApplicationTable::ownerOf(const ClientProperties& facts) {
    const auto& className = facts.className.empty() ? facts.instance : facts.className;
    const auto match = findEntry_(facts.instance, facts.className, facts.pid);
    std::string key;
    std::optional<std::string> bundleIdentifier;
    if (match) {
        bundleIdentifier = match->identifier;
        key = "entry:" + match->identifier;
    } else if (!className.empty()) {
        bundleIdentifier = "x11:" + className;
        key = "class:" + className;
    } else if (facts.pid) {
        key = fmt::format("process:{}", *facts.pid);
    } else {
        key = fmt::format("window:{}", facts.id);
    }
    auto& entry = entryFor(key, std::move(bundleIdentifier), facts.pid);
    if (entry.className.empty()) entry.className = className;
    if (facts.pid && match && match->isOwnProcess) watchProcess(entry, *facts.pid);
    return entry.number;
}

ApplicationTable::Entry& ApplicationTable::entryFor(const std::string& key,
                                                    std::optional<std::string> bundleIdentifier,
                                                    std::optional<ProcessId> process) {
    if (const auto found = numbers_.find(key); found != numbers_.end())
        return entries_.at(found->second);
    const auto number = freeNumber(process);
    auto& entry = entries_[number];
    entry.number = number;
    entry.key = key;
    entry.bundleIdentifier = std::move(bundleIdentifier);
    entry.order = nextOrder_++;
    numbers_[key] = number;
    return entry;
}

ProcessId ApplicationTable::freeNumber(std::optional<ProcessId> process) {
    if (process && !entries_.contains(*process)) return *process;
    return nextMadeUp_++;
}

void ApplicationTable::update(const std::vector<ClientWindowRef>& windows) {
    for (auto& [number, entry] : entries_) {
        entry.windows.clear();
        // A process without a window counts only while it is watched: its number may have been
        // reused.
        std::erase_if(entry.processes,
                      [&](ProcessId process) { return !entry.exitWatches.contains(process); });
    }
    for (const auto& window : windows) {
        const auto found = entries_.find(window->owner);
        if (found == entries_.end()) continue;
        found->second.windows.push_back(window);
        if (window->process) found->second.processes.insert(*window->process);
    }
    for (auto& [number, entry] : entries_) {
        if (!entry.windows.empty() && std::exchange(entry.isLaunching, false))
            entry.launchTimer.reset();
        updateHiding(entry);
    }
    dropEnded();
}

// An application is hidden as long as all windows that we iconified stay so: if any window is shown
// again, by any program, the application is not hidden any more.
void ApplicationTable::updateHiding(Entry& entry) {
    using Hiding = RunningEntry::Hiding;
    if (entry.hiding == Hiding::shown) return;
    const bool allMinimized =
        !entry.windows.empty() && std::all_of(entry.windows.begin(), entry.windows.end(),
                                              [](const auto& w) { return w->isMinimized; });
    if (allMinimized) {
        entry.hiding = Hiding::hidden;
    } else if (entry.hiding == Hiding::hidden) {
        entry.hiding = Hiding::shown;
        entry.iconified.clear();
    }
}

void ApplicationTable::dropEnded() {
    std::erase_if(entries_, [this](const auto& element) {
        const Entry& entry = element.second;
        if (!entry.windows.empty() || entry.isLaunching || !entry.exitWatches.empty()) return false;
        numbers_.erase(entry.key);
        return true;
    });
}

void ApplicationTable::watchProcess(Entry& entry, ProcessId process) {
    if (entry.exitWatches.contains(process)) return;
    auto watch = watchExit_(
        process, [this, number = entry.number, process] { processEnded(number, process); });
    if (watch) entry.exitWatches.emplace(process, std::move(watch));
}

void ApplicationTable::processEnded(ProcessId number, ProcessId process) {
    const auto found = entries_.find(number);
    if (found == entries_.end()) return;
    auto& entry = found->second;
    entry.processes.erase(process);
    entry.exitWatches.erase(process);
    if (entry.isLaunching) limitLaunch(entry, handoverLimit);
    dropEnded();
    changed.emit();
}

void ApplicationTable::noteLaunch(const std::string& bundleIdentifier,
                                  std::optional<ProcessId> process) {
    auto& entry = entryFor("entry:" + bundleIdentifier, bundleIdentifier, process);
    if (process) {
        entry.processes.insert(*process);
        watchProcess(entry, *process);
    }
    if (entry.windows.empty()) {
        entry.isLaunching = true;
        limitLaunch(entry, launchLimit);
    }
    changed.emit();
}

void ApplicationTable::limitLaunch(Entry& entry, double seconds) {
    entry.launchTimer =
        scheduler_.after(seconds, [this, number = entry.number] { launchTimedOut(number); });
}

void ApplicationTable::launchTimedOut(ProcessId number) {
    const auto found = entries_.find(number);
    if (found == entries_.end()) return;
    found->second.isLaunching = false;
    dropEnded();
    changed.emit();
}

void ApplicationTable::noteHideAsked(ProcessId number, std::vector<WindowId> iconified) {
    const auto found = entries_.find(number);
    if (found == entries_.end()) return;
    found->second.hiding = RunningEntry::Hiding::asked;
    found->second.iconified = std::move(iconified);
    updateHiding(found->second);
    changed.emit();
}

void ApplicationTable::noteShowAsked(ProcessId number) {
    const auto found = entries_.find(number);
    if (found == entries_.end()) return;
    auto& entry = found->second;
    const bool wasHidden = entry.isHidden();
    entry.hiding = RunningEntry::Hiding::shown;
    entry.iconified.clear();
    if (wasHidden) changed.emit();
}

void ApplicationTable::setMainWindow(ProcessId number, WindowId window) {
    if (const auto found = entries_.find(number); found != entries_.end())
        found->second.mainWindow = window;
}

std::vector<const RunningEntry*> ApplicationTable::applications() const {
    std::vector<const RunningEntry*> all;
    for (const auto& [number, entry] : entries_)
        all.push_back(&entry);
    std::sort(all.begin(), all.end(),
              [](const auto* a, const auto* b) { return a->order < b->order; });
    return all;
}

const RunningEntry* ApplicationTable::find(ProcessId number) const {
    const auto found = entries_.find(number);
    return found == entries_.end() ? nullptr : &found->second;
}

const RunningEntry* ApplicationTable::findIdentifier(std::string_view bundleIdentifier) const {
    for (const auto& [number, entry] : entries_)
        if (entry.bundleIdentifier == bundleIdentifier) return &entry;
    return nullptr;
}

} // namespace larkspan::x11
