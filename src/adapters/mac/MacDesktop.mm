#include "adapters/mac/MacDesktop.h"

#include "adapters/mac/MacAccessibility.h"
#include "adapters/mac/MacApplicationControl.h"
#include "adapters/mac/MacCoreDock.h"
#include "adapters/mac/MacDesktopPicture.h"
#include "adapters/mac/MacDisplayLink.h"
#include "adapters/mac/MacDockPreferences.h"
#include "adapters/mac/MacDockStrip.h"
#include "adapters/mac/MacEventMonitors.h"
#include "adapters/mac/MacEventTaps.h"
#include "adapters/mac/MacHostApplication.h"
#include "adapters/mac/MacLoginItem.h"
#include "adapters/mac/MacLoginItems.h"
#include "adapters/mac/MacPanelDressing.h"
#include "adapters/mac/MacScreenCapture.h"
#include "adapters/mac/MacScreens.h"
#include "adapters/mac/MacStatusBar.h"
#include "adapters/mac/MacSystemLog.h"
#include "adapters/mac/MacTrash.h"
#include "adapters/mac/MacUserDefaults.h"
#include "adapters/mac/MacWindowServer.h"
#include "adapters/mac/MacWorkspace.h"
#include "adapters/mac/PrivateFunctions.h"
#include "adapters/mac/watchReopen.h"

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
    /// The Dock does not publish them.
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
