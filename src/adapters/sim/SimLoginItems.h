#pragma once

#include "platform/LoginItems.h"

#include <set>
#include <string>

namespace larkspan::sim {

/// The list of apps that the Mac opens at login.
class SimLoginItems final : public LoginItems {
  public:
    std::optional<bool> opensAtLogin(std::string_view application) const override {
        return isKnown ? std::optional(applications.contains(application)) : std::nullopt;
    }
    bool setOpensAtLogin(std::string_view application, bool opens) override {
        if (!isKnown || refuses) return false;
        if (opens)
            applications.emplace(application);
        else if (const auto found = applications.find(application); found != applications.end())
            applications.erase(found);
        return true;
    }

    /// Their paths.
    std::set<std::string, std::less<>> applications;
    /// False on a system that does not give access to its list.
    bool isKnown = true;
    /// Whether the system ignores changes of the list.
    bool refuses = false;
};

} // namespace larkspan::sim
