#pragma once

#include "platform/Image.h"
#include "platform/Workspace.h"

#include <optional>
#include <string>

namespace larkspan {

/// One tile of the bar.
struct DockItem {
    /// The bundle identifier, or "pid:" and the process identifier if that would not be unique.
    std::string id;
    std::string name;
    ImageRef icon;
    /// The path of the application; absent if neither the process nor the system knows it.
    std::optional<std::string> url;
    bool isPinned = false;
    /// The running process; absent for a pinned app that is not running.
    std::optional<RunningApplication> app;

    bool operator==(const DockItem&) const = default;
};

} // namespace larkspan
