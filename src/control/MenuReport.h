#pragma once

#include "platform/Menu.h"

#include <nlohmann/json_fwd.hpp>
#include <string_view>

namespace larkspan {

/// The lines of a menu as `larkspan menu` prints them (see docs/control.md).
nlohmann::json menuReport(const Menu& menu);

/// The first line of that title, in submenus and among those of the Option key too; nullptr when
/// there is none.
const MenuItem* findLine(const Menu& menu, std::string_view title);

} // namespace larkspan
