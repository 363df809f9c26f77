#pragma once

#include "adapters/mac/PrivateFunctions.h"
#include "platform/WindowServer.h"

namespace larkspan::mac {

/// The window server. It announces no changes, and each read is a call to another process.
class MacWindowServer final : public WindowServer {
  public:
    explicit MacWindowServer(const PrivateFunctions& functions)
        : functions_(functions) {}

    WindowServerAbilities abilities() const override { return {}; }
    std::optional<std::vector<WindowListEntry>> windowList(std::uint32_t option) const override;
    std::optional<std::vector<WindowId>> windowNumbers(std::uint32_t option) const override;
    std::optional<std::vector<ManagedDisplay>> managedDisplaySpaces() const override;
    std::optional<std::vector<WindowId>> windowsOfSpace(SpaceId space) const override;
    bool moveWindows(const std::vector<WindowId>& windows, SpaceId space) override;
    Handle subscribe(std::function<void()>) override { return {}; }

  private:
    std::optional<int> connection() const;
    bool moveToManagedSpace(const std::vector<WindowId>& windows, SpaceId space) const;
    bool moveByCompatibilityNumber(std::vector<WindowId> windows, SpaceId space) const;

    const PrivateFunctions& functions_;
};

} // namespace larkspan::mac
