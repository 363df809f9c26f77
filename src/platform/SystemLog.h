#pragma once

#include <string>
#include <string_view>

namespace larkspan {

/// The system's own log, which other programs can read too. Any thread.
class SystemLog {
  public:
    enum class Level { standard, error };
    virtual ~SystemLog() = default;
    /// Whether lines of that level are stored: if not, the caller can avoid costly work for them.
    virtual bool isEnabled(Level level) const = 0;
    virtual void write(std::string_view subsystem, std::string_view category, Level level,
                       const std::string& text) = 0;
};

} // namespace larkspan
