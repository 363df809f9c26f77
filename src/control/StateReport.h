#pragma once

#include <nlohmann/json_fwd.hpp>

namespace larkspan {

class AppController;

/// Everything that shows on the bars now, as `larkspan state` prints it (see docs/control.md). Main
/// thread only.
nlohmann::json stateReport(AppController& controller);

} // namespace larkspan
