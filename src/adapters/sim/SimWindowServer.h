#pragma once

#include "adapters/sim/world/Windows.h"
#include "adapters/sim/world/World.h"

namespace larkspan::sim {

class SimWindowServer final : public WindowServer {
  public:
    SimWindowServer(World& world, Windows& windows)
        : world_(world)
        , windows_(windows) {}

    WindowServerAbilities abilities() const override;
    std::optional<std::vector<WindowListEntry>> windowList(std::uint32_t option) const override;
    std::optional<std::vector<WindowId>> windowNumbers(std::uint32_t option) const override;
    std::optional<std::vector<ManagedDisplay>> managedDisplaySpaces() const override;
    std::optional<std::vector<WindowId>> windowsOfSpace(SpaceId space) const override;
    bool moveWindows(const std::vector<WindowId>& windows, SpaceId space) override;
    Handle subscribe(std::function<void()> callback) override;

  private:
    void appendSystemWindows(std::vector<WindowListEntry>& list) const;
    std::vector<WindowListEntry> entries(std::uint32_t option) const;

    World& world_;
    Windows& windows_;
};

} // namespace larkspan::sim
