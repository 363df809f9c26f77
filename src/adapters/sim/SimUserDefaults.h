#pragma once

#include "adapters/sim/world/KillPoint.h"
#include "platform/UserDefaults.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace larkspan::sim {

/// The program's preferences. Like the simulated Mac, they outlive the program; what a kill would
/// lose can be discarded.
class SimUserDefaults final : public UserDefaults {
  public:
    using Values = std::map<std::string, PropertyValue, std::less<>>;

    explicit SimUserDefaults(KillPoint& killPoint)
        : killPoint_(killPoint) {}

    std::optional<PropertyValue> value(std::string_view key) const override;
    void set(std::string_view key, PropertyValue value) override;
    void remove(std::string_view key) override;
    bool synchronize() override;

    const Values& values() const { return values_; }
    /// The disk is full: changes are kept in this process, but never stored.
    bool diskIsFull = false;
    /// As after a kill of the program: of the changes that were not synchronised, only the first
    /// `survivors` are kept.
    void loseUnsynchronized(std::size_t survivors = 0);
    std::size_t unsynchronized() const { return changes_.size(); }

  private:
    /// A key with its new value, or without one if it was removed.
    using Change = std::pair<std::string, std::optional<PropertyValue>>;
    void change(const Change& change);

    KillPoint& killPoint_;
    Values values_;
    Values stored_;
    /// The changes since they were last stored, in order.
    std::vector<Change> changes_;
};

} // namespace larkspan::sim
