#pragma once

#include <optional>
#include <string_view>

namespace larkspan {

/// The applications besides this program that are opened at login. Main thread only.
class LoginItems {
  public:
    virtual ~LoginItems() = default;
    /// Whether the application at that place is; absent where this system does not let it be known
    /// and changed.
    virtual std::optional<bool> opensAtLogin(std::string_view application) const = 0;
    /// Answers whether it is as asked for now.
    virtual bool setOpensAtLogin(std::string_view application, bool opens) = 0;
};

} // namespace larkspan
