#include "platform/mac/MacDesktop.h"

#include "platform/mac/MacAccessibility.h"
#include "platform/mac/MacApplicationControl.h"
#include "platform/mac/MacCoreDock.h"
#include "platform/mac/MacDesktopPicture.h"
#include "platform/mac/MacDisplayLink.h"
#include "platform/mac/MacDockPreferences.h"
#include "platform/mac/MacDockStrip.h"
#include "platform/mac/MacEventMonitors.h"
#include "platform/mac/MacEventTaps.h"
#include "platform/mac/MacHostApplication.h"
#include "platform/mac/MacLoginItem.h"
#include "platform/mac/MacLoginItems.h"
#include "platform/mac/MacPanelDressing.h"
#include "platform/mac/MacScreenCapture.h"
#include "platform/mac/MacScreens.h"
#include "platform/mac/MacStatusBar.h"
#include "platform/mac/MacSystemLog.h"
#include "platform/mac/MacTrash.h"
#include "platform/mac/MacUserDefaults.h"
#include "platform/mac/MacWindowServer.h"
#include "platform/mac/MacWorkspace.h"
#include "platform/mac/PrivateFunctions.h"
#include "platform/mac/watchReopen.h"

#include <utility>

namespace larkspan::mac {

struct MacDesktop::Parts {
    Parts(Scheduler& theScheduler, DesktopCallbacks callbacks)
        : scheduler(theScheduler)
        , applications(std::move(callbacks.report))
        , reopen(watchReopen(std::move(callbacks.reopened))) {}

    Scheduler& scheduler;
    PrivateFunctions functions;
    MacHostApplication application;
    MacUserDefaults defaults;
    MacWorkspace workspace{scheduler};
    MacApplicationControl applications;
    MacScreens screens;
    MacDockStrip strip;
    MacWindowServer windowServer{functions};
    MacAccessibility accessibility{functions};
    MacScreenCapture screenCapture;
    MacCoreDock coreDock{functions};
    MacDockPreferences dockPreferences;
    MacStatusBar statusBar;
    MacLoginItem loginItem;
    MacLoginItems loginItems;
    MacTrash trash;
    MacEventTaps eventTaps;
    MacEventMonitors eventMonitors;
    MacDisplayLink displayLink;
    MacSystemLog systemLog;
    /// The Dock keeps them to itself.
    AppNotices notices;
    MacPanelDressing dressing;
    MacDesktopPicture picture;
    Handle reopen;
};

MacDesktop::MacDesktop(Scheduler& scheduler, DesktopCallbacks callbacks)
    : parts_(std::make_unique<Parts>(scheduler, std::move(callbacks))) {}

MacDesktop::~MacDesktop() = default;

Platform MacDesktop::platform() {
    return {.scheduler = parts_->scheduler,
            .defaults = parts_->defaults,
            .workspace = parts_->workspace,
            .applications = parts_->applications,
            .screens = parts_->screens,
            .dockStrip = parts_->strip,
            .windowServer = parts_->windowServer,
            .accessibility = parts_->accessibility,
            .screenCapture = parts_->screenCapture,
            .coreDock = parts_->coreDock,
            .dockPreferences = parts_->dockPreferences,
            .statusBar = parts_->statusBar,
            .loginItem = parts_->loginItem,
            .loginItems = parts_->loginItems,
            .application = parts_->application,
            .trash = parts_->trash,
            .eventTaps = parts_->eventTaps,
            .eventMonitors = parts_->eventMonitors,
            .displayLink = parts_->displayLink,
            .systemLog = parts_->systemLog,
            .notices = parts_->notices};
}

PanelDressing& MacDesktop::panelDressing() {
    return parts_->dressing;
}

DesktopPicture& MacDesktop::desktopPicture() {
    return parts_->picture;
}

} // namespace larkspan::mac
