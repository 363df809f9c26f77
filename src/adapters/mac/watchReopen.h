#pragma once

#include "platform/Handle.h"

#include <functional>

namespace larkspan::mac {

/// Calls back each time the user opens the program while it runs, until the handle ends; the system
/// then does nothing else. All other delegate messages are forwarded to the toolkit. Call it after
/// the toolkit has started, and only once at a time.
Handle watchReopen(std::function<void()> reopened);

} // namespace larkspan::mac
