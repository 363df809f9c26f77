#pragma once

#include "settings/Setting.h"

#include <nlohmann/json_fwd.hpp>

namespace larkspan {

class AppController;

/// The value in effect; null for one that follows the system. Main thread only.
nlohmann::json settingReport(const AppController& controller, const Setting& setting);

/// Every setting that a person can change, by its key.
nlohmann::json settingsReport(const AppController& controller);

} // namespace larkspan
