#pragma once

#include "RunningBar.h"
#include "adapters/x11/TestClient.h"

#include <set>
#include <string>

namespace larkspan::e2e {

/// What there is to see, one line each: the windows of an app on a Space, an app with nothing on
/// any Space, the app in front. A line that differs tells a person what is wrong.
using DesktopReading = std::multiset<std::string>;

/// What the X server's properties say, read without any of the program's own code. An app is a
/// WM_CLASS, or a window without one.
DesktopReading readServer(x11::TestClient& reader);
/// The same from the answer to `larkspan state`.
DesktopReading readReport(const nlohmann::json& report);

/// The monitors and every window with its frame, a line each: where to look when they differ.
std::string serverText(x11::TestClient& reader);

/// The lines that only one side has, with its name before each.
std::string differences(const DesktopReading& server, const DesktopReading& report);

} // namespace larkspan::e2e
