#pragma once

#include "adapters/mac/PrivateFunction.h"

#include <ApplicationServices/ApplicationServices.h>

namespace larkspan::mac {

/// Every private function that Larkspan calls, by name and type; docs/macos.md lists the source of
/// each type. One table for the whole program. Any thread.
class PrivateFunctions {
    const SymbolLookup lookup_;

  public:
    explicit PrivateFunctions(SymbolLookup lookup = loadedSymbol)
        : lookup_(std::move(lookup)) {}
    PrivateFunctions(const PrivateFunctions&) = delete;
    PrivateFunctions& operator=(const PrivateFunctions&) = delete;

    /// Searches all loaded libraries, then those with the functions below.
    static void* loadedSymbol(const char* name);

    // The window server. A CGS name is the older name of the same function.
    const PrivateFunction<int()> mainConnectionID{lookup_,
                                                  {"SLSMainConnectionID", "CGSMainConnectionID"}};
    const PrivateFunction<CFArrayRef(int connection)> copyManagedDisplaySpaces{
        lookup_, {"SLSCopyManagedDisplaySpaces", "CGSCopyManagedDisplaySpaces"}};
    /// Option 2 is windows that are neither minimised nor hidden; owner 0 is every process.
    const PrivateFunction<CFArrayRef(int connection, uint32_t owner, CFArrayRef spaces,
                                     uint32_t options, uint64_t* setTags, uint64_t* clearTags)>
        copyWindowsWithOptionsAndTags{
            lookup_, {"SLSCopyWindowsWithOptionsAndTags", "CGSCopyWindowsWithOptionsAndTags"}};
    const PrivateFunction<void(int connection, CFArrayRef windows, uint64_t space)>
        moveWindowsToManagedSpace{lookup_,
                                  {"SLSMoveWindowsToManagedSpace", "CGSMoveWindowsToManagedSpace"}};
    const PrivateFunction<CGError(int connection, uint64_t space, int workspace)> spaceSetCompatID{
        lookup_, {"SLSSpaceSetCompatID", "CGSSpaceSetCompatID"}};
    const PrivateFunction<CGError(int connection, uint32_t* windows, int count, int workspace)>
        setWindowListWorkspace{lookup_, {"SLSSetWindowListWorkspace", "CGSSetWindowListWorkspace"}};

    // Accessibility.
    const PrivateFunction<::AXError(AXUIElementRef element, uint32_t* window)> axElementGetWindow{
        lookup_, {"_AXUIElementGetWindow"}};
    const PrivateFunction<AXUIElementRef(CFDataRef token)> axElementCreateWithRemoteToken{
        lookup_, {"_AXUIElementCreateWithRemoteToken"}};

    // The Dock.
    const PrivateFunction<float()> coreDockGetTileSize{lookup_, {"CoreDockGetTileSize"}};
    /// Some sources declare a second argument; passing it keeps its register defined.
    const PrivateFunction<void(float fraction, Boolean)> coreDockSetTileSize{
        lookup_, {"CoreDockSetTileSize"}};
    const PrivateFunction<Boolean()> coreDockGetAutoHideEnabled{lookup_,
                                                                {"CoreDockGetAutoHideEnabled"}};
    const PrivateFunction<void(Boolean)> coreDockSetAutoHideEnabled{lookup_,
                                                                    {"CoreDockSetAutoHideEnabled"}};
    const PrivateFunction<void(int* orientation, int* pinning)> coreDockGetOrientationAndPinning{
        lookup_, {"CoreDockGetOrientationAndPinning"}};
    const PrivateFunction<void(int orientation, int pinning)> coreDockSetOrientationAndPinning{
        lookup_, {"CoreDockSetOrientationAndPinning"}};
    const PrivateFunction<Boolean()> coreDockIsMagnificationEnabled{
        lookup_, {"CoreDockIsMagnificationEnabled"}};
    const PrivateFunction<void(Boolean)> coreDockSetMagnificationEnabled{
        lookup_, {"CoreDockSetMagnificationEnabled"}};
    /// Everyone passes 0.
    const PrivateFunction<CGError(CFStringRef name, int)> coreDockSendNotification{
        lookup_, {"CoreDockSendNotification"}};
};

} // namespace larkspan::mac
