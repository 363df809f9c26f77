#pragma once

#include <functional>
#include <utility>

namespace larkspan {

/// Owns something that ends with it: a timer, an observation, a monitor. Destroying or resetting
/// the handle undoes the call that made it; a default handle does nothing. Main thread only, unless
/// its maker documents otherwise.
class [[nodiscard]] Handle {
  public:
    Handle() = default;
    explicit Handle(std::function<void()> undo)
        : undo_(std::move(undo)) {}
    Handle(Handle&& other) noexcept
        : undo_(std::exchange(other.undo_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        if (this != &other) {
            reset();
            undo_ = std::exchange(other.undo_, nullptr);
        }
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { reset(); }

    void reset() {
        if (auto undo = std::exchange(undo_, nullptr)) undo();
    }
    explicit operator bool() const { return undo_ != nullptr; }

  private:
    std::function<void()> undo_;
};

} // namespace larkspan
