#pragma once

#include "adapters/sim/SimMac.h"
#include "spaces/SpaceSwitchLog.h"

#include <string>
#include <utility>
#include <vector>

namespace larkspan {

/// A switch log on a simulated Mac, and what the Mac's own log has of it.
class SwitchLogWorld {
  public:
    explicit SwitchLogWorld(std::string_view displays = "1440x900 spaces=3")
        : mac(displays) {}

    /// The lines since the last call.
    std::vector<std::string> newLines() {
        std::vector<std::string> texts;
        for (const auto& line : std::exchange(mac.systemLog.lines, {}))
            texts.push_back(line.text);
        return texts;
    }

    sim::SimMac mac;
    Platform platform = mac.platform();
    SpaceSwitchLog log{platform.scheduler, platform.systemLog, platform.displayLink,
                       platform.screens};
};

} // namespace larkspan
