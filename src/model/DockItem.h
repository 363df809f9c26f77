#pragma once

#include "platform/Image.h"
#include "platform/Workspace.h"

#include <optional>
#include <string>

namespace larkspan {

/// One tile of the bar.
struct DockItem {
    /// The bundle identifier, or "pid:" and the process identifier where that would not be unique.
    std::string id;
    std::string name;
    ImageRef icon;
    /// Where the application lies, as a file path; absent when neither the process nor the system
    /// can tell.
    std::optional<std::string> url;
    bool isPinned = false;
    /// The live process; absent for a pinned app that is not running.
    std::optional<RunningApplication> app;

    bool operator==(const DockItem&) const = default;
};

} // namespace larkspan
