#pragma once

#include "adapters/sim/world/World.h"

namespace larkspan::sim {

class SimWorkspace final : public Workspace {
  public:
    explicit SimWorkspace(World& world)
        : world_(world) {}

    std::vector<RunningApplication> runningApplications() const override;
    std::optional<RunningApplication> frontmostApplication() const override;
    bool hasProcess(ProcessId pid) const override { return world_.app(pid) != nullptr; }
    std::optional<std::string> urlForApplication(std::string_view bundleIdentifier) const override;
    std::string displayName(std::string_view url) const override;
    ImageRef icon(std::string_view url) const override;
    ImageRef genericApplicationIcon() const override;
    Handle subscribe(std::function<void(const WorkspaceEvent&)> callback) override;

  private:
    World& world_;
};

} // namespace larkspan::sim
