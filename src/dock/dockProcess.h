#pragma once

#include "platform/Workspace.h"

#include <optional>

namespace larkspan {

/// The system Dock's process; absent while it restarts, and if there is no such Dock. Main thread
/// only.
std::optional<ProcessId> dockProcess(const Workspace& workspace);

} // namespace larkspan
