#pragma once

#include "RunningBar.h"
#include "adapters/x11/TestClient.h"

#include <set>
#include <string>

namespace larkspan::e2e {

/// What is visible, one line each: the windows of an app on a Space, an app with no window on any
/// Space, the frontmost app. A line that differs shows what is wrong.
using DesktopReading = std::multiset<std::string>;

/// From the X server's properties, read without the program's own code. An app is a WM_CLASS, or a
/// window without one.
DesktopReading readServer(x11::TestClient& reader);
/// The same from the output of `larkspan state`.
DesktopReading readReport(const nlohmann::json& report);

/// The monitors and every window with its frame, one line each, to find out why they differ.
std::string serverText(x11::TestClient& reader);

/// The lines that only one of them has, each after its name.
std::string differences(const DesktopReading& server, const DesktopReading& report);

} // namespace larkspan::e2e
