#include "adapters/mac/MacPanelDressing.h"

#include <algorithm>

/// NSWindow calls this itself when a panel becomes non-activating. Once the window exists, changing
/// only the style mask does not reach the window server.
@interface NSWindow (LarkspanPanels)
- (void)_setPreventsActivation:(BOOL)prevents;
@end

namespace larkspan::mac {

namespace {

NSWindow* windowOf(NativeWindow native) {
    return ((__bridge NSView*)reinterpret_cast<void*>(native)).window;
}

void makeNonActivating(NSWindow* window) {
    if (![window isKindOfClass:[NSPanel class]]) return;
    auto* panel = static_cast<NSPanel*>(window);
    panel.styleMask |= NSWindowStyleMaskNonactivatingPanel;
    panel.becomesKeyOnlyIfNeeded = YES;
    if ([panel respondsToSelector:@selector(_setPreventsActivation:)])
        [panel _setPreventsActivation:YES];
}

} // namespace

MacPanelDressing::~MacPanelDressing() {
    for (id monitor in monitors_)
        [NSEvent removeMonitor:monitor];
}

void MacPanelDressing::dress(NativeWindow native) {
    NSWindow* window = windowOf(native);
    makeNonActivating(window);
    // Above the Dock, which stays under the bar, and below the menu bar and all menus.
    window.level = CGWindowLevelForKey(kCGDockWindowLevelKey) + 1;
    window.collectionBehavior =
        NSWindowCollectionBehaviorCanJoinAllSpaces | NSWindowCollectionBehaviorStationary |
        NSWindowCollectionBehaviorFullScreenAuxiliary | NSWindowCollectionBehaviorIgnoresCycle;
    window.hidesOnDeactivate = NO;
    window.canHide = NO;
    window.excludedFromWindowsMenu = YES;
    window.animationBehavior = NSWindowAnimationBehaviorNone;
}

void MacPanelDressing::setInputArea(NativeWindow native, const Rect& area) {
    NSWindow* window = windowOf(native);
    if (window == nil) return;
    std::erase_if(areas_, [&](const InputArea& known) {
        return known.window == nil || known.window == window;
    });
    areas_.push_back({window, area});
    watchPointer();
    followPointer();
}

// A window gives up the keyboard only when it is ordered out, if its program is not frontmost.
void MacPanelDressing::giveKeyboardBack(NativeWindow native) {
    NSWindow* window = windowOf(native);
    if (!window.keyWindow) return;
    [window orderOut:nil];
    [window orderFrontRegardless];
}

/// A window takes the pointer everywhere or nowhere, so this is switched as the pointer enters and
/// leaves: one monitor gets moves over other programs' windows, the other those over ours.
void MacPanelDressing::watchPointer() {
    if (monitors_ != nil) return;
    const NSEventMask moves = NSEventMaskMouseMoved | NSEventMaskLeftMouseDragged |
                              NSEventMaskRightMouseDragged | NSEventMaskOtherMouseDragged;
    monitors_ = [NSMutableArray array];
    const id others = [NSEvent addGlobalMonitorForEventsMatchingMask:moves
                                                             handler:^(NSEvent*) {
                                                               followPointer();
                                                             }];
    if (others != nil) [monitors_ addObject:others];
    const id own = [NSEvent addLocalMonitorForEventsMatchingMask:moves
                                                         handler:^NSEvent*(NSEvent* event) {
                                                           followPointer();
                                                           return event;
                                                         }];
    if (own != nil) [monitors_ addObject:own];
}

void MacPanelDressing::followPointer() {
    const NSPoint pointer = NSEvent.mouseLocation;
    for (const InputArea& known : areas_) {
        NSWindow* window = known.window;
        const NSRect frame = window.frame;
        const bool isInside =
            known.area.contains({pointer.x - NSMinX(frame), NSMaxY(frame) - pointer.y});
        const BOOL ignores = isInside ? NO : YES;
        if (window.ignoresMouseEvents != ignores) window.ignoresMouseEvents = ignores;
    }
}

} // namespace larkspan::mac
