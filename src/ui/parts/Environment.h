#pragma once

#include <string>
#include <vector>

namespace larkspan::ui {

/// Sets what the toolkit must find in the environment before it starts, unless the user has set it.
/// Returns the names it set: programs started from the bar must not inherit them.
std::vector<std::string> prepareEnvironment();

} // namespace larkspan::ui
