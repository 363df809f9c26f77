#pragma once

#include "platform/PropertyValue.h"

#include <optional>
#include <string>
#include <string_view>

namespace larkspan {

/// The user's standard preferences domain: flat keys, typed values. Main thread only.
class UserDefaults {
  public:
    virtual ~UserDefaults() = default;

    virtual std::optional<PropertyValue> value(std::string_view key) const = 0;
    /// Takes effect at once for every later read of this process.
    virtual void set(std::string_view key, PropertyValue value) = 0;
    virtual void remove(std::string_view key) = 0;
    /// Returns when everything set so far would survive a kill of this process; false if it could
    /// not be stored.
    virtual bool synchronize() = 0;
};

} // namespace larkspan
