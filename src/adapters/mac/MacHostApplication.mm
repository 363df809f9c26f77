#include "adapters/mac/MacHostApplication.h"

#import <AppKit/AppKit.h>

namespace larkspan::mac {

// The bundle says so too, but a program in a build folder may have none.
MacHostApplication::MacHostApplication() {
    [NSApp setActivationPolicy:NSApplicationActivationPolicyAccessory];
}

void MacHostApplication::activate() {
    [NSApp activateIgnoringOtherApps:YES];
    // Bars, labels and menus are panels, which cannot become the main window.
    for (NSWindow* window in NSApp.windows)
        if (window.visible && window.canBecomeMainWindow) [window makeKeyAndOrderFront:nil];
}

} // namespace larkspan::mac
