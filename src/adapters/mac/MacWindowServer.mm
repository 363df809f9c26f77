#include "adapters/mac/MacWindowServer.h"

#include "adapters/mac/ObjectView.h"
#include "adapters/mac/WindowMove.h"
#include "adapters/mac/decode/managedSpaces.h"
#include "adapters/mac/decode/windowList.h"

#import <Foundation/Foundation.h>

/// The window server's operation to move windows. No header declares it; its class is found by
/// name.
@protocol LarkspanMoveWindowsOperation
- (instancetype)initWithWindows:(NSArray<NSNumber*>*)windows spaceID:(uint64_t)space;
/// Sends the operation and returns; the windows move later, or not at all.
- (void)performWithWMBridgeDelegate;
@end

namespace larkspan::mac {
namespace {

constexpr uint32_t everyOwner = 0;
constexpr uint32_t neitherMinimisedNorHidden = 2;
/// Set on a Space during a move: any number that no Space has.
constexpr int lentNumber = 0x6c61726b;

NSArray<NSNumber*>* numbersOf(const std::vector<WindowId>& windows) {
    NSMutableArray<NSNumber*>* numbers = [NSMutableArray arrayWithCapacity:windows.size()];
    for (const auto window : windows)
        // Signed numbers of the same width, as the window server uses.
        [numbers addObject:@(static_cast<int>(window))];
    return numbers;
}

bool moveByBridgedOperation(const std::vector<WindowId>& windows, SpaceId space) {
    Class operation = NSClassFromString(@"SLSBridgedMoveWindowsToManagedSpaceOperation");
    if (![operation instancesRespondToSelector:@selector(initWithWindows:spaceID:)] ||
        ![operation instancesRespondToSelector:@selector(performWithWMBridgeDelegate)])
        return false;
    id<LarkspanMoveWindowsOperation> order = [operation alloc];
    order = [order initWithWindows:numbersOf(windows) spaceID:space];
    [order performWithWMBridgeDelegate];
    return order != nil;
}

} // namespace

std::optional<int> MacWindowServer::connection() const {
    auto* mainConnection = functions_.mainConnectionID.get();
    return mainConnection != nullptr ? std::optional(mainConnection()) : std::nullopt;
}

std::optional<std::vector<WindowListEntry>>
MacWindowServer::windowList(std::uint32_t option) const {
    @autoreleasepool {
        NSArray* list = CFBridgingRelease(CGWindowListCopyWindowInfo(option, kCGNullWindowID));
        return mac::windowList(ObjectView(list));
    }
}

std::optional<std::vector<WindowId>> MacWindowServer::windowNumbers(std::uint32_t option) const {
    // Its elements are plain numbers, not objects.
    CFArrayRef list = CGWindowListCreate(option, kCGNullWindowID);
    if (list == nullptr) return std::nullopt;
    const CFIndex count = CFArrayGetCount(list);
    std::vector<WindowId> numbers;
    numbers.reserve(static_cast<std::size_t>(count));
    for (CFIndex index = 0; index < count; ++index) {
        const void* element = CFArrayGetValueAtIndex(list, index);
        numbers.push_back(static_cast<WindowId>(reinterpret_cast<std::uintptr_t>(element)));
    }
    CFRelease(list);
    return numbers;
}

std::optional<std::vector<ManagedDisplay>> MacWindowServer::managedDisplaySpaces() const {
    const auto server = connection();
    auto* copy = functions_.copyManagedDisplaySpaces.get();
    if (!server || copy == nullptr) return std::nullopt;
    @autoreleasepool {
        NSArray* displays = CFBridgingRelease(copy(*server));
        return managedDisplays(ObjectView(displays));
    }
}

std::optional<std::vector<WindowId>> MacWindowServer::windowsOfSpace(SpaceId space) const {
    const auto server = connection();
    auto* copy = functions_.copyWindowsWithOptionsAndTags.get();
    if (!server || copy == nullptr) return std::nullopt;
    @autoreleasepool {
        NSArray* spaces = @[ @(static_cast<std::int64_t>(space)) ];
        uint64_t setTags = 0;
        uint64_t clearTags = 0;
        NSArray* windows = CFBridgingRelease(copy(*server, everyOwner, (__bridge CFArrayRef)spaces,
                                                  neitherMinimisedNorHidden, &setTags, &clearTags));
        return mac::windowNumbers(ObjectView(windows));
    }
}

bool MacWindowServer::moveWindows(const std::vector<WindowId>& windows, SpaceId space) {
    const auto version = NSProcessInfo.processInfo.operatingSystemVersion;
    switch (windowMoveOf(version.majorVersion, version.minorVersion)) {
    case WindowMove::managedSpace:
        return moveToManagedSpace(windows, space);
    case WindowMove::compatibilityNumber:
        return moveByCompatibilityNumber(windows, space);
    case WindowMove::bridgedOperation:
        return moveByBridgedOperation(windows, space);
    case WindowMove::none:
        return false;
    }
    return false;
}

bool MacWindowServer::moveToManagedSpace(const std::vector<WindowId>& windows,
                                         SpaceId space) const {
    const auto server = connection();
    auto* move = functions_.moveWindowsToManagedSpace.get();
    if (!server || move == nullptr) return false;
    move(*server, (__bridge CFArrayRef)numbersOf(windows), space);
    return true;
}

bool MacWindowServer::moveByCompatibilityNumber(std::vector<WindowId> windows,
                                                SpaceId space) const {
    const auto server = connection();
    auto* lend = functions_.spaceSetCompatID.get();
    auto* move = functions_.setWindowListWorkspace.get();
    if (!server || lend == nullptr || move == nullptr) return false;
    lend(*server, space, lentNumber);
    move(*server, windows.data(), static_cast<int>(windows.size()), lentNumber);
    lend(*server, space, 0);
    return true;
}

} // namespace larkspan::mac
