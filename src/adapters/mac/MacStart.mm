#include "adapters/mac/MacStart.h"

#include "adapters/mac/MacDesktop.h"

#import <CoreGraphics/CoreGraphics.h>

#include <utility>

namespace larkspan::mac {

std::optional<std::string> MacStart::unavailableReason() const {
    CFDictionaryRef session = CGSessionCopyCurrentDictionary();
    if (!session) return "there is no window server in this session";
    CFRelease(session);
    return std::nullopt;
}

DesktopStart::Opened MacStart::open(Scheduler& scheduler, DesktopCallbacks callbacks) const {
    return std::make_unique<MacDesktop>(scheduler, std::move(callbacks));
}

} // namespace larkspan::mac
