#pragma once

#include "adapters/sim/world/Applications.h"
#include "platform/TrashFolder.h"

#include <utility>

namespace larkspan::sim {

class SimTrash final : public TrashFolder {
  public:
    SimTrash(World& world, Applications& applications)
        : world_(world)
        , applications_(applications) {}

    std::optional<std::size_t> entryCount() const override { return world_.trashEntries; }
    bool holdsDesktopServicesFile() const override { return world_.trashHoldsDesktopServicesFile; }
    void open() override { applications_.open("/Trash"); }
    bool announcesChanges() const override { return world_.announcesChanges; }
    Handle subscribe(std::function<void()> callback) override {
        return world_.trashChanged.subscribe(std::move(callback));
    }

  private:
    World& world_;
    Applications& applications_;
};

} // namespace larkspan::sim
