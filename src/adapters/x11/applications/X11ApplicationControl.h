#pragma once

#include "adapters/freedesktop/bus/FileManagerOnBus.h"
#include "adapters/freedesktop/entries/DefaultApplications.h"
#include "adapters/freedesktop/entries/InstalledApplications.h"
#include "adapters/freedesktop/launch/Launcher.h"
#include "adapters/x11/applications/ApplicationTable.h"
#include "adapters/x11/windows/WindowRequests.h"
#include "platform/ApplicationControl.h"

namespace larkspan::x11 {

/// Controls applications through their windows, and through signals to their processes. Hiding an
/// application iconifies its windows, which needs a window manager.
class X11ApplicationControl : public ApplicationControl {
  public:
    /// `report` is called with one line about a launch that failed.
    X11ApplicationControl(ApplicationTable& table,
                          const freedesktop::InstalledApplications& installed,
                          const freedesktop::DefaultApplications& defaults,
                          freedesktop::Launcher& launcher, WindowRequests& requests,
                          const WindowMirror& mirror,
                          std::function<void(const std::string&)> report);

    bool open(std::string_view url) override;
    bool openWith(const std::vector<std::string>& urls, std::string_view application) override;
    /// Uses the desktop entry's own action for a new window, if it has one.
    bool openNewInstance(std::string_view application) override;
    bool reveal(std::string_view url) override;
    bool activate(ProcessId pid) override;
    bool hide(ProcessId pid) override;
    bool unhide(ProcessId pid) override;
    bool terminate(ProcessId pid) override;
    bool forceTerminate(ProcessId pid) override;
    bool sendSignal(ProcessId pid, int signal) override;

  private:
    bool openApplication(const freedesktop::DesktopEntry& entry);
    bool launch(const freedesktop::DesktopEntry& entry, const std::vector<std::string>& files);
    bool noteLaunch(const freedesktop::DesktopEntry& entry,
                    const freedesktop::Launcher::Result& result);
    ClientWindowRef windowToActivate(const RunningEntry& entry) const;

    ApplicationTable& table_;
    const freedesktop::InstalledApplications& installed_;
    const freedesktop::DefaultApplications& defaults_;
    freedesktop::Launcher& launcher_;
    WindowRequests& requests_;
    const WindowMirror& mirror_;
    std::function<void(const std::string&)> report_;
    freedesktop::FileManagerOnBus fileManager_;
};

} // namespace larkspan::x11
