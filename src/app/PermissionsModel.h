#pragma once

#include "platform/Accessibility.h"
#include "platform/ApplicationControl.h"
#include "platform/HostApplication.h"
#include "platform/Observed.h"
#include "platform/Scheduler.h"
#include "platform/ScreenCapture.h"

namespace larkspan {

/// The state and the actions of the permissions window: which of the two permissions the program
/// has, updated while the window is shown, and how to grant each. Never shown on a desktop that
/// grants everything. Main thread only.
class PermissionsModel {
  public:
    PermissionsModel(Scheduler& scheduler, Accessibility& accessibility,
                     ScreenCapture& screenCapture, ApplicationControl& applications,
                     HostApplication& application);
    PermissionsModel(const PermissionsModel&) = delete;
    PermissionsModel& operator=(const PermissionsModel&) = delete;

    Observed<bool> hasAccessibility;
    Observed<bool> hasScreenRecording;
    Observed<bool> isShown;

    /// Whether the system grants both permissions now.
    bool hasAll() const;

    /// Brings the program and its window to the front.
    void show();
    /// Hides the window, which is kept.
    void close();

    void grantAccessibility();
    void grantScreenRecording();

  private:
    void refresh();

    Scheduler& scheduler_;
    Accessibility& accessibility_;
    ScreenCapture& screenCapture_;
    ApplicationControl& applications_;
    HostApplication& application_;
    /// Uptime, in seconds.
    double lastScreenReading_ = 0;
    Handle refreshing_;
};

} // namespace larkspan
