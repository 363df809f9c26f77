#pragma once

#include "platform/UserDefaults.h"

#include <map>
#include <string>

namespace larkspan::sim {

/// The program's preferences. They outlive the program, as the simulated Mac does; what a kill
/// would lose can be lost.
class SimUserDefaults final : public UserDefaults {
  public:
    using Values = std::map<std::string, PropertyValue, std::less<>>;

    std::optional<PropertyValue> value(std::string_view key) const override;
    void set(std::string_view key, PropertyValue value) override;
    void remove(std::string_view key) override;
    bool synchronize() override;

    const Values& values() const { return values_; }
    /// The disk takes no more: what is set is kept for this process, and never stored.
    bool diskIsFull = false;
    /// As after a kill of the program: what was not synchronised is as it was before.
    void loseUnsynchronized() { values_ = stored_; }

  private:
    Values values_;
    Values stored_;
};

} // namespace larkspan::sim
