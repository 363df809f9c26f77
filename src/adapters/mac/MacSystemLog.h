#pragma once

#include "platform/SystemLog.h"

#include <map>
#include <mutex>
#include <os/log.h>
#include <utility>

namespace larkspan::mac {

/// The unified log.
class MacSystemLog final : public SystemLog {
  public:
    bool isEnabled(Level level) const override;
    void write(std::string_view subsystem, std::string_view category, Level level,
               const std::string& text) override;

  private:
    os_log_t logOf(std::string_view subsystem, std::string_view category);

    std::mutex mutex_;
    /// By subsystem and category; a log cannot be released.
    std::map<std::pair<std::string, std::string>, os_log_t> logs_;
};

} // namespace larkspan::mac
