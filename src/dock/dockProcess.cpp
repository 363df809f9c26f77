#include "dock/dockProcess.h"

namespace larkspan {

std::optional<ProcessId> dockProcess(const Workspace& workspace) {
    for (const auto& app : workspace.runningApplications())
        if (app.bundleIdentifier == "com.apple.dock") return app.pid;
    return std::nullopt;
}

} // namespace larkspan
