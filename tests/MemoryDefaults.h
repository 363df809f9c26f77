#pragma once

#include "platform/UserDefaults.h"

#include <map>

namespace larkspan {

/// The user defaults in memory, open for looking at.
class MemoryDefaults : public UserDefaults {
  public:
    std::optional<PropertyValue> value(std::string_view key) const override {
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    void set(std::string_view key, PropertyValue value) override {
        values.insert_or_assign(std::string(key), std::move(value));
    }
    void remove(std::string_view key) override { values.erase(std::string(key)); }
    bool synchronize() override { return true; }

    std::map<std::string, PropertyValue, std::less<>> values;
};

} // namespace larkspan
