#pragma once

#include <optional>
#include <string_view>

namespace larkspan {

/// The applications besides this program that are opened at login. Main thread only.
class LoginItems {
  public:
    virtual ~LoginItems() = default;
    /// Whether the application at that path is; absent if the system does not let programs read and
    /// change it.
    virtual std::optional<bool> opensAtLogin(std::string_view application) const = 0;
    /// Returns whether it is set as requested now.
    virtual bool setOpensAtLogin(std::string_view application, bool opens) = 0;
};

} // namespace larkspan
