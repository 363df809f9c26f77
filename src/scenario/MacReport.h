#pragma once

#include <nlohmann/json_fwd.hpp>

namespace larkspan::sim {

class SimMac;

/// The simulated Mac's own state, independent of the program: the report under "/mac".
nlohmann::json macReport(const SimMac& mac);

} // namespace larkspan::sim
