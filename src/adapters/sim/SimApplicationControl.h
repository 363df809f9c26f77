#pragma once

#include "adapters/sim/world/Applications.h"
#include "adapters/sim/world/DockProcess.h"
#include "platform/ApplicationControl.h"

namespace larkspan::sim {

class SimApplicationControl final : public ApplicationControl {
  public:
    SimApplicationControl(World& world, Applications& applications, DockProcess& dock)
        : world_(world)
        , applications_(applications)
        , dock_(dock) {}

    bool open(std::string_view url) override { return applications_.open(url); }
    bool openWith(const std::vector<std::string>& urls, std::string_view application) override {
        return applications_.openWith(urls, application);
    }
    bool openNewInstance(std::string_view application) override {
        return applications_.openNewInstance(application);
    }
    bool reveal(std::string_view url) override { return applications_.reveal(url); }
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
    /// The app that is about to come forward; the last request counts.
    Handle activation_;
};

} // namespace larkspan::sim
