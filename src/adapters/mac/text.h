#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <string_view>

namespace larkspan::mac {

/// UTF-8 as the frameworks' text; empty when it is not UTF-8.
inline NSString* nsString(std::string_view text) {
    NSString* string = [[NSString alloc] initWithBytes:text.data()
                                                length:text.size()
                                              encoding:NSUTF8StringEncoding];
    return string != nil ? string : @"";
}

/// The text as UTF-8; empty without one.
inline std::string textOf(NSString* string) {
    const char* utf8 = string.UTF8String;
    return utf8 != nullptr ? utf8 : "";
}

} // namespace larkspan::mac
