#pragma once

#include <string>
#include <string_view>

namespace larkspan {

/// The system's own log, which other programs read too. Any thread.
class SystemLog {
  public:
    enum class Level { standard, error };
    virtual ~SystemLog() = default;
    /// Whether lines of that level are kept anywhere: what is costly to find out for a line need
    /// not be found out when they are not.
    virtual bool isEnabled(Level level) const = 0;
    virtual void write(std::string_view subsystem, std::string_view category, Level level,
                       const std::string& text) = 0;
};

} // namespace larkspan
