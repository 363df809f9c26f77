#pragma once

#include "adapters/sim/SimMac.h"
#include "scenario/ScenarioFields.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace larkspan::sim {

/// The fields of a world.
const std::vector<Field>& worldFields();

/// What is wrong with a scenario's world; absent if nothing is.
std::optional<std::string> checkWorld(const nlohmann::json& world);

/// Sets up the Mac as the checked world says.
void setUp(SimMac& mac, const nlohmann::json& world);

/// Installs a handful of common apps, and pins the first few to the Dock.
void installUsualApps(SimMac& mac);

} // namespace larkspan::sim
