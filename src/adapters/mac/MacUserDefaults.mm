#include "adapters/mac/MacUserDefaults.h"

#include "adapters/mac/ObjectView.h"
#include "adapters/mac/decode/propertyValue.h"
#include "adapters/mac/text.h"

#import <Foundation/Foundation.h>

namespace larkspan::mac {

std::optional<PropertyValue> MacUserDefaults::value(std::string_view key) const {
    return propertyValue(
        ObjectView([NSUserDefaults.standardUserDefaults objectForKey:nsString(key)]));
}

void MacUserDefaults::set(std::string_view key, PropertyValue value) {
    [NSUserDefaults.standardUserDefaults setObject:objectOf(value) forKey:nsString(key)];
}

void MacUserDefaults::remove(std::string_view key) {
    [NSUserDefaults.standardUserDefaults removeObjectForKey:nsString(key)];
}

// NSUserDefaults sends a value to the preferences service with a delay; this waits for it.
bool MacUserDefaults::synchronize() {
    return CFPreferencesAppSynchronize(kCFPreferencesCurrentApplication) != 0;
}

} // namespace larkspan::mac
