#include "app/AppDelegate.h"

#include <utility>

namespace larkspan {
namespace {

/// A hung app must not block a click for longer than this; the system's own limit is 6 s.
constexpr float messagingTimeoutSeconds = 0.5F;

} // namespace

AppDelegate::AppDelegate(const Platform& platform, AppController::MakeBarPanels makeBarPanels,
                         bool hasIslands)
    : accessibility_(platform.accessibility)
    , controller_(platform, std::move(makeBarPanels), hasIslands) {}

void AppDelegate::didFinishLaunching() {
    // If set on the system-wide element, it is valid for every call of the program.
    accessibility_.setMessagingTimeout(accessibility_.createSystemWide(), messagingTimeoutSeconds);
    controller_.log().write("app", "Larkspan started");
    controller_.start();
}

bool AppDelegate::shouldHandleReopen() {
    if (controller_.mode() == BarMode::systemDock) controller_.useVantrel();
    return false;
}

void AppDelegate::willTerminate() {
    controller_.stop();
}

} // namespace larkspan
