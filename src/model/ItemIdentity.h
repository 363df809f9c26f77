#pragma once

#include "platform/Workspace.h"

#include <string>
#include <vector>

namespace larkspan {

/// The tile id of each application, in order: its bundle identifier, or "pid:" and its process
/// identifier if it has none or an earlier application has the same one.
std::vector<std::string> itemIds(const std::vector<RunningApplication>& applications);

} // namespace larkspan
