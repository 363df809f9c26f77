#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace larkspan {

class AppController;

// The settings by the keys under which they are stored, for scripts and the state report. Main
// thread only.

/// The value in effect; null for one that follows the system. Absent when there is no such key.
std::optional<nlohmann::json> namedSetting(AppController& controller, std::string_view key);

/// Changes a setting and everything that shows it. Answers what is wrong with the key or the value,
/// as a sentence; absent when the change is made.
std::optional<std::string> setNamedSetting(AppController& controller, std::string_view key,
                                           std::string_view text);

/// Every key with its value.
nlohmann::json allSettings(AppController& controller);

} // namespace larkspan
