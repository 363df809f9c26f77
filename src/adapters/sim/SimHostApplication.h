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
    /// Where the end of the run loop leads: the delegate's will-terminate, in a turn of its own.
    std::function<void()> onTerminate;

  private:
    VirtualScheduler& scheduler_;
};

} // namespace larkspan::sim
