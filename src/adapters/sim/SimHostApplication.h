#pragma once

#include "adapters/sim/VirtualScheduler.h"
#include "platform/HostApplication.h"

#include <functional>
#include <string>

namespace larkspan::sim {

class SimHostApplication final : public HostApplication {
  public:
    explicit SimHostApplication(VirtualScheduler& scheduler)
        : scheduler_(scheduler) {}

    void activate() override { ++activations; }
    void terminate() override {
        isTerminating = true;
        scheduler_.post([this] {
            if (onTerminate) onTerminate();
        });
    }
    std::string description() const override { return "Larkspan on a simulated Mac"; }

    int activations = 0;
    bool isTerminating = false;
    /// Called when the run loop ends, in a separate turn: the delegate's will-terminate.
    std::function<void()> onTerminate;

  private:
    VirtualScheduler& scheduler_;
};

} // namespace larkspan::sim
