#include "adapters/x11/X11DesktopWorld.h"
#include "platform/contract/AXObserverContract.h"
#include "platform/contract/AccessibilityContract.h"
#include "platform/contract/EventMonitorsContract.h"
#include "platform/contract/ScreensContract.h"
#include "platform/contract/WindowServerContract.h"
#include "platform/contract/WorkspaceContract.h"

// A real X11 desktop fulfils the same contracts as the simulated Mac.

namespace larkspan::contract {
namespace {

const auto desktop = testing::Values(adapter<DesktopWorld, X11DesktopWorld>("X11Desktop"));
INSTANTIATE_TEST_SUITE_P(X11, ScreensContract, desktop);
INSTANTIATE_TEST_SUITE_P(X11, WindowServerContract, desktop);
INSTANTIATE_TEST_SUITE_P(X11, WorkspaceContract, desktop);
INSTANTIATE_TEST_SUITE_P(X11, AccessibilityContract, desktop);
INSTANTIATE_TEST_SUITE_P(X11, AXObserverContract, desktop);
INSTANTIATE_TEST_SUITE_P(X11, EventMonitorsContract, desktop);

} // namespace
} // namespace larkspan::contract
