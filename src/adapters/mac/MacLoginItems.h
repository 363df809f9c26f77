#pragma once

#include "platform/LoginItems.h"

namespace larkspan::mac {

/// Programs cannot read or change which other apps the system opens at login: the functions for
/// that are "no longer supported" since macOS 10.11.
class MacLoginItems final : public LoginItems {
  public:
    std::optional<bool> opensAtLogin(std::string_view) const override { return std::nullopt; }
    bool setOpensAtLogin(std::string_view, bool) override { return false; }
};

} // namespace larkspan::mac
