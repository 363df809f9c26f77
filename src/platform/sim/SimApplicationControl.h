#pragma once

#include "platform/sim/Applications.h"
#include "platform/sim/DockProcess.h"

namespace larkspan::sim {

class SimApplicationControl final : public ApplicationControl {
  public:
    SimApplicationControl(World& world, Applications& applications, DockProcess& dock)
        : world_(world)
        , applications_(applications)
        , dock_(dock) {}

    bool open(std::string_view url) override { return applications_.open(url); }
    bool activate(ProcessId pid) override;
    bool hide(ProcessId pid) override;
    bool unhide(ProcessId pid) override;
    bool terminate(ProcessId pid) override;
    bool forceTerminate(ProcessId pid) override;
    bool sendSignal(ProcessId pid, int signal) override;

  private:
    World& world_;
    Applications& applications_;
    DockProcess& dock_;
};

} // namespace larkspan::sim
