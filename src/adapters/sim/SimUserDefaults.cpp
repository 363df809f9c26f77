#include "adapters/sim/SimUserDefaults.h"

#include <utility>

namespace larkspan::sim {

std::optional<PropertyValue> SimUserDefaults::value(std::string_view key) const {
    const auto found = values_.find(key);
    if (found == values_.end()) return std::nullopt;
    return found->second;
}

void SimUserDefaults::change(const Change& change) {
    const auto& [key, value] = change;
    if (value)
        values_.insert_or_assign(key, *value);
    else
        values_.erase(key);
}

void SimUserDefaults::set(std::string_view key, PropertyValue value) {
    if (!killPoint_.mayAct()) return;
    change(changes_.emplace_back(key, std::move(value)));
}

void SimUserDefaults::remove(std::string_view key) {
    if (!killPoint_.mayAct()) return;
    change(changes_.emplace_back(key, std::nullopt));
}

bool SimUserDefaults::synchronize() {
    if (!killPoint_.mayAct() || diskIsFull) return false;
    stored_ = values_;
    changes_.clear();
    return true;
}

void SimUserDefaults::loseUnsynchronized(std::size_t survivors) {
    values_ = stored_;
    const auto changes = std::exchange(changes_, {});
    for (std::size_t i = 0; i < std::min(survivors, changes.size()); ++i)
        change(changes[i]);
    stored_ = values_;
}

} // namespace larkspan::sim
