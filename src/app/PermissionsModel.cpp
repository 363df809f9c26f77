#include "app/PermissionsModel.h"

#include <string>

namespace larkspan {
namespace {

constexpr double refreshSeconds = 0.5;
/// Reading the screen recording permission is slow, so it is read less often.
constexpr double screenReadingSeconds = 1;

std::string privacyPane(const char* pane) {
    return std::string("x-apple.systempreferences:com.apple.preference.security?") + pane;
}

} // namespace

PermissionsModel::PermissionsModel(Scheduler& scheduler, Accessibility& accessibility,
                                   ScreenCapture& screenCapture, ApplicationControl& applications,
                                   HostApplication& application)
    : scheduler_(scheduler)
    , accessibility_(accessibility)
    , screenCapture_(screenCapture)
    , applications_(applications)
    , application_(application) {}

bool PermissionsModel::hasAll() const {
    return accessibility_.isProcessTrusted() && screenCapture_.preflightAccess();
}

void PermissionsModel::show() {
    if (isShown.set(true)) {
        hasScreenRecording.set(screenCapture_.preflightAccess());
        lastScreenReading_ = scheduler_.uptime();
        refresh();
        refreshing_ = scheduler_.every(refreshSeconds, [this] { refresh(); });
    }
    application_.activate();
}

void PermissionsModel::close() {
    refreshing_.reset();
    isShown.set(false);
}

void PermissionsModel::refresh() {
    hasAccessibility.set(accessibility_.isProcessTrusted());
    if (scheduler_.uptime() - lastScreenReading_ <= screenReadingSeconds) return;
    lastScreenReading_ = scheduler_.uptime();
    hasScreenRecording.set(screenCapture_.preflightAccess());
}

void PermissionsModel::grantAccessibility() {
    accessibility_.requestTrust();
    applications_.open(privacyPane("Privacy_Accessibility"));
}

void PermissionsModel::grantScreenRecording() {
    if (!screenCapture_.requestAccess()) applications_.open(privacyPane("Privacy_ScreenCapture"));
}

} // namespace larkspan
