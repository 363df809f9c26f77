#include "adapters/mac/MacDockPreferences.h"

#include "adapters/mac/ObjectView.h"
#include "adapters/mac/decode/propertyValue.h"
#include "adapters/mac/text.h"

namespace larkspan::mac {
namespace {

CFStringRef dockDomain() {
    return CFSTR("com.apple.dock");
}

} // namespace

bool MacDockPreferences::synchronize() {
    return CFPreferencesAppSynchronize(dockDomain()) != 0;
}

std::optional<PropertyValue> MacDockPreferences::copyAppValue(std::string_view key) const {
    id value = CFBridgingRelease(
        CFPreferencesCopyAppValue((__bridge CFStringRef)nsString(key), dockDomain()));
    return propertyValue(ObjectView(value));
}

void MacDockPreferences::setAppValue(std::string_view key, PropertyValue value) {
    CFPreferencesSetAppValue((__bridge CFStringRef)nsString(key),
                             (__bridge CFPropertyListRef)objectOf(value), dockDomain());
}

} // namespace larkspan::mac
