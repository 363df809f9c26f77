#pragma once

#include "adapters/sim/SimMac.h"
#include "scenario/ScenarioFields.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <vector>

namespace larkspan::sim {

/// What a description of the world may hold.
const std::vector<Field>& worldFields();

/// Answers what is wrong with a scenario's description of the world at its start.
std::optional<std::string> checkWorld(const nlohmann::json& world);

/// Makes the Mac as the description says. It has been checked.
void setUp(SimMac& mac, const nlohmann::json& world);

/// A handful of everyday apps on the disk, the first few of them in the Dock.
void installUsualApps(SimMac& mac);

} // namespace larkspan::sim
