#pragma once

#include "platform/Handle.h"

#include <functional>

namespace larkspan::qt {

/// Calls back on the main thread whenever the descriptor is readable (or was closed by the other
/// side), until the handle ends. The caller owns the descriptor, and may close it once the handle
/// has ended.
Handle watchReadable(int descriptor, std::function<void()> callback);

/// The same for a writable descriptor.
Handle watchWritable(int descriptor, std::function<void()> callback);

} // namespace larkspan::qt
