#pragma once

#include "platform/SystemLog.h"

#include <string>
#include <vector>

namespace larkspan::sim {

/// Keeps every line. Single-threaded, like everything on the simulated Mac.
class SimSystemLog final : public SystemLog {
  public:
    struct Line {
        std::string subsystem;
        std::string category;
        Level level = Level::standard;
        std::string text;
    };

    bool isEnabled(Level) const override { return isEnabledAtAll; }
    void write(std::string_view subsystem, std::string_view category, Level level,
               const std::string& text) override {
        lines.push_back({std::string(subsystem), std::string(category), level, text});
    }

    std::vector<Line> lines;
    bool isEnabledAtAll = true;
};

} // namespace larkspan::sim
