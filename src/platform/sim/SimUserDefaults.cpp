#include "platform/sim/SimUserDefaults.h"

#include <utility>

namespace larkspan::sim {

std::optional<PropertyValue> SimUserDefaults::value(std::string_view key) const {
    const auto found = values_.find(key);
    if (found == values_.end()) return std::nullopt;
    return found->second;
}

void SimUserDefaults::set(std::string_view key, PropertyValue value) {
    values_.insert_or_assign(std::string(key), std::move(value));
}

void SimUserDefaults::remove(std::string_view key) {
    const auto found = values_.find(key);
    if (found != values_.end()) values_.erase(found);
}

bool SimUserDefaults::synchronize() {
    if (diskIsFull) return false;
    stored_ = values_;
    return true;
}

} // namespace larkspan::sim
