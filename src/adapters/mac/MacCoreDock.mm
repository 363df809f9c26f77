#include "adapters/mac/MacCoreDock.h"

#include "adapters/mac/text.h"

namespace larkspan::mac {

bool MacCoreDock::has(CoreDockFunction function) const {
    switch (function) {
    case CoreDockFunction::getTileSize:
        return functions_.coreDockGetTileSize.get() != nullptr;
    case CoreDockFunction::setTileSize:
        return functions_.coreDockSetTileSize.get() != nullptr;
    case CoreDockFunction::getAutoHideEnabled:
        return functions_.coreDockGetAutoHideEnabled.get() != nullptr;
    case CoreDockFunction::setAutoHideEnabled:
        return functions_.coreDockSetAutoHideEnabled.get() != nullptr;
    case CoreDockFunction::getOrientationAndPinning:
        return functions_.coreDockGetOrientationAndPinning.get() != nullptr;
    case CoreDockFunction::setOrientationAndPinning:
        return functions_.coreDockSetOrientationAndPinning.get() != nullptr;
    case CoreDockFunction::isMagnificationEnabled:
        return functions_.coreDockIsMagnificationEnabled.get() != nullptr;
    case CoreDockFunction::setMagnificationEnabled:
        return functions_.coreDockSetMagnificationEnabled.get() != nullptr;
    case CoreDockFunction::sendNotification:
        return functions_.coreDockSendNotification.get() != nullptr;
    }
    return false;
}

float MacCoreDock::tileSize() const {
    return functions_.coreDockGetTileSize.get()();
}

void MacCoreDock::setTileSize(float fraction) {
    functions_.coreDockSetTileSize.get()(fraction, true);
}

bool MacCoreDock::isAutoHideEnabled() const {
    return functions_.coreDockGetAutoHideEnabled.get()() != 0;
}

void MacCoreDock::setAutoHideEnabled(bool enabled) {
    functions_.coreDockSetAutoHideEnabled.get()(enabled);
}

OrientationAndPinning MacCoreDock::orientationAndPinning() const {
    int orientation = 0;
    int pinning = 0;
    functions_.coreDockGetOrientationAndPinning.get()(&orientation, &pinning);
    return {static_cast<std::uint32_t>(orientation), static_cast<std::uint32_t>(pinning)};
}

void MacCoreDock::setOrientationAndPinning(OrientationAndPinning value) {
    functions_.coreDockSetOrientationAndPinning.get()(static_cast<int>(value.orientation),
                                                      static_cast<int>(value.pinning));
}

bool MacCoreDock::isMagnificationEnabled() const {
    return functions_.coreDockIsMagnificationEnabled.get()() != 0;
}

void MacCoreDock::setMagnificationEnabled(bool enabled) {
    functions_.coreDockSetMagnificationEnabled.get()(enabled);
}

void MacCoreDock::sendNotification(std::string_view name) {
    functions_.coreDockSendNotification.get()((__bridge CFStringRef)nsString(name), 0);
}

} // namespace larkspan::mac
