#pragma once

#include "platform/ApplicationControl.h"

#include <functional>
#include <string>

namespace larkspan::mac {

/// Controls applications through the workspace and their own processes.
class MacApplicationControl final : public ApplicationControl {
  public:
    /// `report` is called with one line if something could not be opened after all.
    explicit MacApplicationControl(std::function<void(const std::string&)> report);

    bool open(std::string_view url) override;
    bool openWith(const std::vector<std::string>& urls, std::string_view application) override;
    bool openNewInstance(std::string_view application) override;
    bool reveal(std::string_view url) override;
    bool activate(ProcessId pid) override;
    bool hide(ProcessId pid) override;
    bool unhide(ProcessId pid) override;
    bool terminate(ProcessId pid) override;
    bool forceTerminate(ProcessId pid) override;
    bool sendSignal(ProcessId pid, int signal) override;

  private:
    std::function<void(const std::string&)> report_;
};

} // namespace larkspan::mac
