#include "adapters/mac/MacScreens.h"

#include "adapters/mac/text.h"

#import <AppKit/AppKit.h>

#include <ColorSync/ColorSync.h>

namespace larkspan::mac {
namespace {

Rect rectOf(NSRect rect) {
    return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

/// The name by which the window server lists the display; empty for a display that was just
/// removed.
std::string identifierOf(DisplayId display) {
    CFUUIDRef identifier = CGDisplayCreateUUIDFromDisplayID(display);
    if (identifier == nullptr) return {};
    NSString* text = CFBridgingRelease(CFUUIDCreateString(nullptr, identifier));
    CFRelease(identifier);
    return textOf(text);
}

/// `mainHeight` is the height of the main screen, where both coordinate systems have their origin.
Screen valueOf(NSScreen* screen, double mainHeight) {
    NSNumber* number = screen.deviceDescription[@"NSScreenNumber"];
    const Rect frame = rectOf(screen.frame);
    return {
        .display = number.unsignedIntValue,
        .displayIdentifier = identifierOf(number.unsignedIntValue),
        .frame = frame,
        .visibleFrame = rectOf(screen.visibleFrame),
        .bounds = {frame.x, mainHeight - frame.maxY(), frame.width, frame.height},
        .scale = screen.backingScaleFactor,
    };
}

} // namespace

std::vector<Screen> MacScreens::screens() const {
    NSArray<NSScreen*>* list = NSScreen.screens;
    const double mainHeight = list.firstObject.frame.size.height;
    std::vector<Screen> screens;
    screens.reserve(list.count);
    for (NSScreen* screen in list)
        screens.push_back(valueOf(screen, mainHeight));
    return screens;
}

Handle MacScreens::subscribe(std::function<void()> callback) {
    NSNotificationCenter* center = NSNotificationCenter.defaultCenter;
    id observer = [center addObserverForName:NSApplicationDidChangeScreenParametersNotification
                                      object:nil
                                       queue:nil
                                  usingBlock:^(NSNotification*) {
                                    callback();
                                  }];
    return Handle([center, observer] { [center removeObserver:observer]; });
}

} // namespace larkspan::mac
