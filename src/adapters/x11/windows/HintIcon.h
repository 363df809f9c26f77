#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "platform/Identifiers.h"
#include "platform/Image.h"

namespace larkspan::x11 {

/// The icon that an old program names in its `WM_HINTS`: a pixmap of the X server, and its mask. A
/// two-colour one is drawn black on white. Empty if there is none. Any thread.
Bitmap hintIcon(X11Connection& connection, WindowId window);

} // namespace larkspan::x11
