#pragma once

#include "platform/Menu.h"

#include <nlohmann/json_fwd.hpp>

namespace larkspan {

/// The lines of a menu as `larkspan menu` prints them (see docs/control.md).
nlohmann::json menuReport(const Menu& menu);

} // namespace larkspan
