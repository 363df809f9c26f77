#pragma once

#include "adapters/sim/world/World.h"
#include "platform/EventMonitor.h"

#include <utility>

namespace larkspan::sim {

/// Reports every event of the simulated Mac. None of them is sent to the program itself.
class SimEventMonitors final : public EventMonitors {
  public:
    explicit SimEventMonitors(World& world)
        : world_(world) {}

    Point mouseLocation() const override { return world_.pointer; }
    Handle addGlobalMonitor(InputEventMask mask, Callback callback) override {
        return world_.inputEvents.subscribe(
            [mask, callback = std::move(callback)](const InputEvent& event) {
                if ((mask & maskOf(event.type)) != 0) callback(event);
            });
    }

  private:
    World& world_;
};

} // namespace larkspan::sim
