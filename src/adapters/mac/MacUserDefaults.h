#pragma once

#include "platform/UserDefaults.h"

namespace larkspan::mac {

/// The standard user defaults of the program's bundle, or of its process name without one.
class MacUserDefaults final : public UserDefaults {
  public:
    std::optional<PropertyValue> value(std::string_view key) const override;
    void set(std::string_view key, PropertyValue value) override;
    void remove(std::string_view key) override;
    bool synchronize() override;
};

} // namespace larkspan::mac
