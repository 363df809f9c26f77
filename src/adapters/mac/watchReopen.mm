#include "adapters/mac/watchReopen.h"

#import <AppKit/AppKit.h>

#include <utility>

/// Installed in front of the toolkit's own application delegate.
@interface LarkspanApplicationDelegate : NSObject <NSApplicationDelegate>
- (instancetype)initWithNext:(id<NSApplicationDelegate>)next
                    reopened:(std::function<void()>)reopened;
@property(readonly) id<NSApplicationDelegate> next;
@end

@implementation LarkspanApplicationDelegate {
    std::function<void()> _reopened;
}

- (instancetype)initWithNext:(id<NSApplicationDelegate>)next
                    reopened:(std::function<void()>)reopened {
    self = [super init];
    if (self != nil) {
        _next = next;
        _reopened = std::move(reopened);
    }
    return self;
}

- (BOOL)applicationShouldHandleReopen:(NSApplication*)__unused application
                    hasVisibleWindows:(BOOL)__unused hasVisibleWindows {
    _reopened();
    return NO;
}

- (BOOL)respondsToSelector:(SEL)selector {
    return [super respondsToSelector:selector] || [_next respondsToSelector:selector];
}

- (id)forwardingTargetForSelector:(SEL)__unused selector {
    return _next;
}

@end

namespace larkspan::mac {

Handle watchReopen(std::function<void()> reopened) {
    auto* delegate = [[LarkspanApplicationDelegate alloc] initWithNext:NSApp.delegate
                                                              reopened:std::move(reopened)];
    NSApp.delegate = delegate;
    // Retained here, since the application does not retain its delegate.
    return Handle([delegate] { NSApp.delegate = delegate.next; });
}

} // namespace larkspan::mac
