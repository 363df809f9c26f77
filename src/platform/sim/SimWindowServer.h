#pragma once

#include "platform/sim/World.h"

namespace larkspan::sim {

class SimWindowServer final : public WindowServer {
  public:
    explicit SimWindowServer(World& world)
        : world_(world) {}

    WindowServerAbilities abilities() const override;
    std::optional<std::vector<WindowListEntry>> windowList(std::uint32_t option) const override;
    std::optional<std::vector<ManagedDisplay>> managedDisplaySpaces() const override;
    std::optional<std::vector<WindowId>> windowsOfSpace(SpaceId space) const override;
    Handle subscribe(std::function<void()> callback) override;

  private:
    void appendSystemWindows(std::vector<WindowListEntry>& list) const;

    World& world_;
};

} // namespace larkspan::sim
