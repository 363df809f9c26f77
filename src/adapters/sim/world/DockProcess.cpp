#include "adapters/sim/world/DockProcess.h"

#include <algorithm>

namespace larkspan::sim {

namespace {

/// The identifier of an entry of the pinned list; empty if it has none.
std::string identifierOf(const PropertyValue& entry) {
    const auto* dictionary = entry.as<PropertyValue::Dictionary>();
    if (!dictionary) return {};
    const auto tile = dictionary->find("tile-data");
    if (tile == dictionary->end()) return {};
    const auto* data = tile->second.as<PropertyValue::Dictionary>();
    if (!data) return {};
    const auto identifier = data->find("bundle-identifier");
    if (identifier == data->end()) return {};
    const auto* text = identifier->second.as<std::string>();
    return text ? *text : std::string{};
}

PropertyValue entryFor(const InstalledApp& app) {
    using Dictionary = PropertyValue::Dictionary;
    const Dictionary file{{"_CFURLString", "file://" + app.path + "/"}, {"_CFURLStringType", 15}};
    const Dictionary tile{
        {"bundle-identifier", app.bundleIdentifier}, {"file-label", app.name}, {"file-data", file}};
    return Dictionary{{"tile-type", "file-tile"}, {"tile-data", tile}};
}

} // namespace

void DockProcess::start() {
    if (world_.appOf(bundleIdentifier)) return;
    applications_.launch(bundleIdentifier,
                         {.inBackground = true, .policy = ActivationPolicy::accessory});
    readPreferences();
    world_.screensMayHaveChanged();
}

bool DockProcess::owns(ProcessId pid) const {
    const App* app = world_.app(pid);
    return app && app->bundleIdentifier == bundleIdentifier;
}

void DockProcess::restart() {
    respawn_.reset();
    if (const App* dock = world_.appOf(bundleIdentifier)) applications_.kill(dock->pid);
    world_.screensMayHaveChanged();
    if (world_.dockRestartSeconds)
        respawn_ = world_.scheduler.after(*world_.dockRestartSeconds, [this] { start(); });
}

void DockProcess::readPreferences() {
    world_.pinned.clear();
    const auto found = world_.dockPreferences.find("persistent-apps");
    if (found == world_.dockPreferences.end()) return;
    const auto* entries = found->second.as<PropertyValue::Array>();
    if (!entries) return;
    for (const PropertyValue& entry : *entries) {
        if (auto identifier = identifierOf(entry); !identifier.empty())
            world_.pinned.push_back(std::move(identifier));
    }
}

void DockProcess::setPinned(const std::vector<std::string>& identifiers) {
    PropertyValue::Array entries;
    for (const std::string& identifier : identifiers) {
        const auto app = world_.installed.find(identifier);
        if (app != world_.installed.end()) entries.push_back(entryFor(app->second));
    }
    world_.dockPreferences["persistent-apps"] = std::move(entries);
    readPreferences();
    world_.scheduler.post([this] { world_.dockPreferencesChanged.emit(); });
}

void DockProcess::pin(std::string_view identifier) {
    auto list = world_.pinned;
    if (std::find(list.begin(), list.end(), identifier) == list.end())
        list.emplace_back(identifier);
    setPinned(list);
}

void DockProcess::unpin(std::string_view identifier) {
    auto list = world_.pinned;
    std::erase(list, identifier);
    setPinned(list);
}

} // namespace larkspan::sim
