#pragma once

#include "platform/Accessibility.h"
#include "platform/ApplicationControl.h"
#include "platform/HostApplication.h"
#include "platform/Observed.h"
#include "platform/Scheduler.h"
#include "platform/ScreenCapture.h"

namespace larkspan {

/// What the permissions window shows and does: which of the two permissions the program has, kept
/// fresh while the window is shown, and the way to grant each. On a desktop that grants everything
/// it is never asked to show. Main thread only.
class PermissionsWindow {
  public:
    PermissionsWindow(Scheduler& scheduler, Accessibility& accessibility,
                      ScreenCapture& screenCapture, ApplicationControl& applications,
                      HostApplication& application);
    PermissionsWindow(const PermissionsWindow&) = delete;
    PermissionsWindow& operator=(const PermissionsWindow&) = delete;

    Observed<bool> hasAccessibility;
    Observed<bool> hasScreenRecording;
    Observed<bool> isShown;

    /// Both permissions, asked of the system now.
    bool hasAll() const;

    /// Brings the program and its window to the front.
    void show();
    /// Hides the window; it is kept for the next time.
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
