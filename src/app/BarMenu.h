#pragma once

#include "platform/Menu.h"

namespace larkspan {

class AppController;

/// The bar's own menu: its appearance, and how to hide it. Built each time it opens; it must not
/// outlive the controller. Main thread only.
Menu barMenu(AppController& controller);

} // namespace larkspan
