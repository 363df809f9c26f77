#include "adapters/sim/SimDockPreferences.h"

#include <utility>

namespace larkspan::sim {

bool SimDockPreferences::synchronize() {
    if (!world_.killPoint.mayAct()) return false;
    for (auto& [key, value] : set_)
        world_.dockPreferences[key] = value;
    set_.clear();
    read_.reset();
    return true;
}

std::optional<PropertyValue> SimDockPreferences::copyAppValue(std::string_view key) const {
    if (const auto own = set_.find(key); own != set_.end()) return own->second;
    if (!read_) read_ = world_.dockPreferences;
    const auto found = read_->find(std::string(key));
    if (found == read_->end()) return std::nullopt;
    return found->second;
}

void SimDockPreferences::setAppValue(std::string_view key, PropertyValue value) {
    set_.insert_or_assign(std::string(key), std::move(value));
}

Handle SimDockPreferences::subscribe(std::function<void()> callback) {
    return world_.dockPreferencesChanged.subscribe(std::move(callback));
}

} // namespace larkspan::sim
