#pragma once

#include "platform/Handle.h"

#include <functional>

namespace larkspan::qt {

/// Calls back on the main thread whenever the descriptor has something to read (or has been closed
/// by the other side), until the handle ends. The descriptor stays the caller's, who may close it
/// once the handle has ended.
Handle watchReadable(int descriptor, std::function<void()> callback);

/// The same for a descriptor that has room to write.
Handle watchWritable(int descriptor, std::function<void()> callback);

} // namespace larkspan::qt
