#pragma once

#import <Foundation/Foundation.h>

#include <string>
#include <string_view>

namespace larkspan::mac {

/// UTF-8 as an NSString; empty if it is not valid UTF-8.
inline NSString* nsString(std::string_view text) {
    NSString* string = [[NSString alloc] initWithBytes:text.data()
                                                length:text.size()
                                              encoding:NSUTF8StringEncoding];
    return string != nil ? string : @"";
}

/// The text as UTF-8; empty for nil.
inline std::string textOf(NSString* string) {
    const char* utf8 = string.UTF8String;
    return utf8 != nullptr ? utf8 : "";
}

} // namespace larkspan::mac
