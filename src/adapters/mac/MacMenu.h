#pragma once

#include "platform/Menu.h"

#import <AppKit/AppKit.h>

namespace larkspan::mac {

/// The menu as an NSMenu. Main thread only.
NSMenu* nsMenu(const Menu& menu);

} // namespace larkspan::mac
