#include "adapters/mac/MacLoginItem.h"

#import <Foundation/Foundation.h>

#include <dlfcn.h>

/// The methods of SMAppService that we use, available since macOS 13.
@protocol LarkspanLoginService
+ (id<LarkspanLoginService>)mainAppService;
+ (void)openSystemSettingsLoginItems;
@property(readonly) NSInteger status;
- (BOOL)registerAndReturnError:(NSError**)error;
- (BOOL)unregisterAndReturnError:(NSError**)error;
@end

namespace larkspan::mac {

namespace {

Class<LarkspanLoginService> loginService() {
    return NSClassFromString(@"SMAppService");
}

} // namespace

// Loads the class into the process, permanently.
MacLoginItem::MacLoginItem() {
    dlopen("/System/Library/Frameworks/ServiceManagement.framework/ServiceManagement", RTLD_LAZY);
}

LoginItem::Status MacLoginItem::status() const {
    const id<LarkspanLoginService> service = [loginService() mainAppService];
    if (service == nil) return Status::notFound;
    switch (service.status) {
    case 0:
        return Status::notRegistered;
    case 1:
        return Status::enabled;
    case 2:
        return Status::requiresApproval;
    default:
        return Status::notFound;
    }
}

bool MacLoginItem::registerItem() {
    return [[loginService() mainAppService] registerAndReturnError:nil] == YES;
}

bool MacLoginItem::unregisterItem() {
    return [[loginService() mainAppService] unregisterAndReturnError:nil] == YES;
}

void MacLoginItem::openSystemSettings() {
    [loginService() openSystemSettingsLoginItems];
}

} // namespace larkspan::mac
