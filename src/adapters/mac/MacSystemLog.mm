#include "adapters/mac/MacSystemLog.h"

namespace larkspan::mac {

namespace {

os_log_type_t typeOf(SystemLog::Level level) {
    return level == SystemLog::Level::error ? OS_LOG_TYPE_ERROR : OS_LOG_TYPE_DEFAULT;
}

} // namespace

bool MacSystemLog::isEnabled(Level level) const {
    return os_log_type_enabled(OS_LOG_DEFAULT, typeOf(level));
}

void MacSystemLog::write(std::string_view subsystem, std::string_view category, Level level,
                         const std::string& text) {
    // Without "public", the system would hide the text.
    os_log_with_type(logOf(subsystem, category), typeOf(level), "%{public}s", text.c_str());
}

os_log_t MacSystemLog::logOf(std::string_view subsystem, std::string_view category) {
    const std::lock_guard lock(mutex_);
    const std::pair key{std::string(subsystem), std::string(category)};
    auto found = logs_.find(key);
    if (found == logs_.end())
        found = logs_.emplace(key, os_log_create(key.first.c_str(), key.second.c_str())).first;
    return found->second;
}

} // namespace larkspan::mac
