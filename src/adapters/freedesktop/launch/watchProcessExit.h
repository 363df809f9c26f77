#pragma once

#include "platform/Handle.h"
#include "platform/Identifiers.h"

#include <functional>

namespace larkspan::freedesktop {

/// Calls back on the main thread once the process has ended, whoever its parent is, until the
/// handle ends. Returns an empty handle if there is no such process or the kernel cannot watch it.
Handle watchProcessExit(ProcessId process, std::function<void()> ended);

} // namespace larkspan::freedesktop
