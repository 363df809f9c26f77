#pragma once

#include "platform/Handle.h"

#include <functional>

namespace larkspan::mac {

/// Calls back each time the user opens the program while it runs, until the handle ends; beyond
/// that the system does nothing then. Everything else an application's delegate is told goes on to
/// the toolkit. To be called after the toolkit has started, and not twice at a time.
Handle watchReopen(std::function<void()> reopened);

} // namespace larkspan::mac
