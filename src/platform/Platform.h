#pragma once

#include "platform/Accessibility.h"
#include "platform/AppNotices.h"
#include "platform/ApplicationControl.h"
#include "platform/CoreDock.h"
#include "platform/DisplayLink.h"
#include "platform/DockPreferences.h"
#include "platform/DockStrip.h"
#include "platform/EventMonitor.h"
#include "platform/EventTap.h"
#include "platform/HostApplication.h"
#include "platform/LoginItem.h"
#include "platform/LoginItems.h"
#include "platform/Scheduler.h"
#include "platform/ScreenCapture.h"
#include "platform/Screens.h"
#include "platform/StatusBar.h"
#include "platform/SystemLog.h"
#include "platform/TrashFolder.h"
#include "platform/UserDefaults.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

namespace larkspan {

/// The interfaces of one desktop, chosen when the program starts. Only the application's root gets
/// all of them; it passes each part of the system the interfaces that this part needs.
struct Platform {
    Scheduler& scheduler;
    UserDefaults& defaults;
    Workspace& workspace;
    ApplicationControl& applications;
    Screens& screens;
    DockStrip& dockStrip;
    WindowServer& windowServer;
    Accessibility& accessibility;
    ScreenCapture& screenCapture;
    CoreDock& coreDock;
    DockPreferences& dockPreferences;
    StatusBar& statusBar;
    LoginItem& loginItem;
    LoginItems& loginItems;
    HostApplication& application;
    TrashFolder& trash;
    EventTaps& eventTaps;
    EventMonitors& eventMonitors;
    DisplayLink& displayLink;
    SystemLog& systemLog;
    AppNotices& notices;
};

} // namespace larkspan
