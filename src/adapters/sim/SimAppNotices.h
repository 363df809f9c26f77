#pragma once

#include "adapters/sim/world/World.h"
#include "platform/AppNotices.h"

#include <utility>

namespace larkspan::sim {

/// What apps show on their tiles of the Dock; announced only if the system announces changes.
class SimAppNotices final : public AppNotices {
  public:
    explicit SimAppNotices(World& world)
        : world_(world) {}

    bool announcesChanges() const override { return world_.announcesChanges; }
    std::vector<AppNotice> notices() const override {
        std::vector<AppNotice> notices;
        for (const App& app : world_.apps)
            if (app.bundleIdentifier)
                notices.push_back({*app.bundleIdentifier, app.badge, app.attention.has_value()});
        return notices;
    }
    Handle subscribe(std::function<void()> callback) override {
        return world_.noticesChanged.subscribe(std::move(callback));
    }

  private:
    World& world_;
};

} // namespace larkspan::sim
