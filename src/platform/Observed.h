#pragma once

#include "platform/Signal.h"

#include <utility>

namespace larkspan {

/// A property that notifies its observers only when it changes: setting an equal value has no
/// effect. Observers read the new value from the property. One thread only.
template <typename T>
class Observed {
  public:
    Observed() = default;
    explicit Observed(T value)
        : value_(std::move(value)) {}
    Observed(const Observed&) = delete;
    Observed& operator=(const Observed&) = delete;

    const T& get() const { return value_; }
    const T& operator*() const { return value_; }
    const T* operator->() const { return &value_; }

    /// Returns whether the value was different.
    bool set(T value) {
        if (value == value_) return false;
        value_ = std::move(value);
        changed_.emit();
        return true;
    }

    [[nodiscard]] Handle observe(std::function<void()> callback) const {
        return changed_.subscribe(std::move(callback));
    }

  private:
    T value_{};
    Signal<> changed_;
};

} // namespace larkspan
