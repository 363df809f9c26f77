#pragma once

#include "platform/Handle.h"
#include "platform/Identifiers.h"

#include <functional>

namespace larkspan::freedesktop {

/// Calls back on the main thread once the process has ended, whosoever's child it is, until the
/// handle ends. An empty handle when there is no such process or the kernel cannot watch it.
Handle watchProcessExit(ProcessId process, std::function<void()> ended);

} // namespace larkspan::freedesktop
