#pragma once

#include "platform/Workspace.h"

#include <string>
#include <vector>

namespace larkspan {

/// The tile id of each application, in order: its bundle identifier, or "pid:" and its process
/// identifier when it has none or an application before it has the same.
std::vector<std::string> itemIds(const std::vector<RunningApplication>& applications);

} // namespace larkspan
