#pragma once

#include "adapters/sim/SimMac.h"
#include "diagnostics/DiagnosticsLog.h"
#include "model/DockStore.h"
#include "model/PlannedFlights.h"
#include "model/WindowAnimator.h"
#include "model/WindowRefresh.h"

#include <optional>
#include <string_view>

namespace larkspan {

/// The model alone over the interfaces of a desktop, without bars and settings.
struct BareModel {
    explicit BareModel(const Platform& desktop)
        : platform(desktop) {}

    /// Reads the windows for the first time and follows the desktop from then on.
    void start() {
        refresh.emplace(store, platform.scheduler, platform.workspace, platform.screens,
                        platform.windowServer, platform.accessibility, platform.dockPreferences,
                        platform.eventMonitors, log);
    }

    Platform platform;
    DiagnosticsLog log{platform.scheduler};
    PlannedFlights flights;
    WindowAnimator animator{platform.scheduler, platform.applications, flights};
    DockStore store{platform.scheduler,
                    platform.workspace,
                    platform.applications,
                    platform.screens,
                    platform.dockPreferences,
                    animator,
                    log};
    std::optional<WindowRefresh> refresh;
};

/// Stands before the model, which needs it to be there.
struct OneMac {
    explicit OneMac(std::string_view displays)
        : mac(displays) {}
    sim::SimMac mac;
};

/// A simulated Mac with the model over it. The Mac may be furnished before `start`.
struct ModelOnMac : OneMac, BareModel {
    explicit ModelOnMac(std::string_view displays = "1440x900")
        : OneMac(displays)
        , BareModel(mac.platform()) {}
};

} // namespace larkspan
