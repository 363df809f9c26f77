#include "adapters/mac/MacAccessibility.h"

#include "adapters/mac/MacElement.h"
#include "adapters/mac/text.h"

#include <utility>

namespace larkspan::mac {
namespace {

AXError errorOf(::AXError error) {
    return static_cast<AXError>(error);
}

// A copy: the callback may end the observation that holds it.
void callBack(AXObserverRef, AXUIElementRef, CFStringRef, void* callback) {
    const auto copy = *static_cast<std::function<void()>*>(callback);
    copy();
}

} // namespace

bool MacAccessibility::isProcessTrusted() const {
    return AXIsProcessTrusted() != 0;
}

bool MacAccessibility::requestTrust() {
    NSDictionary* options = @{(__bridge NSString*)kAXTrustedCheckOptionPrompt : @YES};
    return AXIsProcessTrustedWithOptions((__bridge CFDictionaryRef)options) != 0;
}

AXElementRef MacAccessibility::createSystemWide() const {
    return MacElement::adopt(AXUIElementCreateSystemWide());
}

AXElementRef MacAccessibility::createApplication(ProcessId pid) const {
    return MacElement::adopt(AXUIElementCreateApplication(pid));
}

AXElementRef MacAccessibility::createWithRemoteToken(const RemoteToken& token) const {
    auto* create = functions_.axElementCreateWithRemoteToken.get();
    if (create == nullptr) return nullptr;
    @autoreleasepool {
        NSData* bytes = [NSData dataWithBytes:token.data() length:token.size()];
        return MacElement::adopt(create((__bridge CFDataRef)bytes));
    }
}

AXError MacAccessibility::setMessagingTimeout(const AXElementRef& element, float seconds) const {
    return errorOf(AXUIElementSetMessagingTimeout(MacElement::of(element), seconds));
}

AXAttribute MacAccessibility::attribute(const AXElementRef& element, std::string_view name) const {
    @autoreleasepool {
        CFTypeRef value = nullptr;
        const auto error = AXUIElementCopyAttributeValue(
            MacElement::of(element), (__bridge CFStringRef)nsString(name), &value);
        id object = CFBridgingRelease(value);
        if (error != kAXErrorSuccess) return {errorOf(error), std::nullopt};
        return {AXError::success, axValueOf(object)};
    }
}

AXError MacAccessibility::setAttribute(const AXElementRef& element, std::string_view name,
                                       const AXValue& value) const {
    @autoreleasepool {
        id object = objectOf(value);
        if (object == nil) return AXError::illegalArgument;
        return errorOf(AXUIElementSetAttributeValue(MacElement::of(element),
                                                    (__bridge CFStringRef)nsString(name),
                                                    (__bridge CFTypeRef)object));
    }
}

AXError MacAccessibility::performAction(const AXElementRef& element,
                                        std::string_view action) const {
    @autoreleasepool {
        return errorOf(AXUIElementPerformAction(MacElement::of(element),
                                                (__bridge CFStringRef)nsString(action)));
    }
}

std::optional<ProcessId> MacAccessibility::pid(const AXElementRef& element) const {
    pid_t pid = 0;
    if (AXUIElementGetPid(MacElement::of(element), &pid) != kAXErrorSuccess) return std::nullopt;
    return pid;
}

std::optional<WindowId> MacAccessibility::window(const AXElementRef& element) const {
    auto* getWindow = functions_.axElementGetWindow.get();
    uint32_t number = 0;
    if (getWindow == nullptr || getWindow(MacElement::of(element), &number) != kAXErrorSuccess ||
        number == 0)
        return std::nullopt;
    return number;
}

// One observer for each notification, so that ending it does not call the app: the app notices when
// the observer's port closes.
Handle MacAccessibility::observe(const AXElementRef& element, std::string_view notification,
                                 std::function<void()> callback) const {
    const auto owner = pid(element);
    AXObserverRef made = nullptr;
    if (!owner || AXObserverCreate(*owner, callBack, &made) != kAXErrorSuccess) return {};
    id observer = CFBridgingRelease(made);
    auto context = std::make_shared<std::function<void()>>(std::move(callback));
    if (AXObserverAddNotification(made, MacElement::of(element),
                                  (__bridge CFStringRef)nsString(notification),
                                  context.get()) != kAXErrorSuccess)
        return {};
    CFRunLoopAddSource(CFRunLoopGetMain(), AXObserverGetRunLoopSource(made), kCFRunLoopCommonModes);
    return Handle([observer, element, context] {
        CFRunLoopRemoveSource(CFRunLoopGetMain(),
                              AXObserverGetRunLoopSource((__bridge AXObserverRef)observer),
                              kCFRunLoopCommonModes);
    });
}

} // namespace larkspan::mac
