#pragma once

#include "adapters/mac/decode/ValueView.h"

namespace larkspan::mac {

/// A view of a value in a test, as `ObjectView` is one of the platform's objects.
class PropertyView {
  public:
    PropertyView(const PropertyValue* value)
        : value_(value) {}

    PropertyView operator[](std::string_view key) const {
        const auto* members = as<PropertyValue::Dictionary>();
        if (members == nullptr) return nullptr;
        const auto found = members->find(std::string(key));
        return found == members->end() ? nullptr : &found->second;
    }
    std::optional<bool> boolean() const { return copy<bool>(); }
    std::optional<std::int64_t> integer() const { return copy<std::int64_t>(); }
    std::optional<double> real() const { return copy<double>(); }
    std::optional<std::string> string() const { return copy<std::string>(); }
    std::optional<Data> data() const { return copy<Data>(); }
    std::optional<std::vector<PropertyView>> array() const {
        const auto* elements = as<PropertyValue::Array>();
        if (elements == nullptr) return std::nullopt;
        std::vector<PropertyView> views;
        for (const auto& element : *elements)
            views.emplace_back(&element);
        return views;
    }
    std::optional<std::vector<std::pair<std::string, PropertyView>>> dictionary() const {
        const auto* members = as<PropertyValue::Dictionary>();
        if (members == nullptr) return std::nullopt;
        std::vector<std::pair<std::string, PropertyView>> views;
        for (const auto& [key, member] : *members)
            views.emplace_back(key, &member);
        return views;
    }

  private:
    template <typename T>
    const T* as() const {
        return value_ != nullptr ? value_->as<T>() : nullptr;
    }
    template <typename T>
    std::optional<T> copy() const {
        const T* found = as<T>();
        return found != nullptr ? std::optional(*found) : std::nullopt;
    }

    const PropertyValue* value_;
};
static_assert(ValueView<PropertyView>);

} // namespace larkspan::mac
