#pragma once

#include <nlohmann/json_fwd.hpp>

namespace larkspan::sim {

class SimMac;

/// The simulated Mac's own state, as it would be seen without the program: what a scenario expects
/// under "/mac".
nlohmann::json macReport(const SimMac& mac);

} // namespace larkspan::sim
