#pragma once

#include "platform/Menu.h"

namespace larkspan {

class AppController;

/// The bar's own menu: how it looks, and what becomes of it. Built anew each time it opens; it must
/// not outlive the controller. Main thread only.
Menu barMenu(AppController& controller);

} // namespace larkspan
