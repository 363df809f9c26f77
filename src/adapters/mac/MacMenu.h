#pragma once

#include "platform/Menu.h"

#import <AppKit/AppKit.h>

namespace larkspan::mac {

/// The menu as one of the system's own. Main thread only.
NSMenu* nsMenu(const Menu& menu);

} // namespace larkspan::mac
