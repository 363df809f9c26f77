#include "platform/contract/SchedulerContract.h"
#include "platform/sim/VirtualScheduler.h"

namespace larkspan::contract {
namespace {

class VirtualAdapter {
  public:
    Scheduler& scheduler() { return scheduler_; }
    void run(double seconds) { scheduler_.runFor(seconds); }

  private:
    sim::VirtualScheduler scheduler_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Virtual, SchedulerContract, VirtualAdapter);

} // namespace
} // namespace larkspan::contract
