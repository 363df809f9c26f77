#include "adapters/sim/SimCoreDock.h"
#include "platform/CoreDock.h"

namespace larkspan::sim {

namespace {

std::string_view nameOf(CoreDockFunction function) {
    switch (function) {
    case CoreDockFunction::getTileSize:
        return "CoreDockGetTileSize";
    case CoreDockFunction::setTileSize:
        return "CoreDockSetTileSize";
    case CoreDockFunction::getAutoHideEnabled:
        return "CoreDockGetAutoHideEnabled";
    case CoreDockFunction::setAutoHideEnabled:
        return "CoreDockSetAutoHideEnabled";
    case CoreDockFunction::getOrientationAndPinning:
        return "CoreDockGetOrientationAndPinning";
    case CoreDockFunction::setOrientationAndPinning:
        return "CoreDockSetOrientationAndPinning";
    case CoreDockFunction::isMagnificationEnabled:
        return "CoreDockIsMagnificationEnabled";
    case CoreDockFunction::setMagnificationEnabled:
        return "CoreDockSetMagnificationEnabled";
    case CoreDockFunction::sendNotification:
        return "CoreDockSendNotification";
    }
    return {};
}

} // namespace

bool SimCoreDock::has(CoreDockFunction function) const {
    return world_.has(nameOf(function));
}

bool SimCoreDock::mayAct() {
    if (!world_.killPoint.mayAct()) return false;
    ++setCalls_;
    return true;
}

void SimCoreDock::setTileSize(float fraction) {
    if (!mayAct() || world_.dockRefusesSizes) return;
    world_.dock.tileSize = fraction;
    world_.screensMayHaveChanged();
}

void SimCoreDock::setAutoHideEnabled(bool enabled) {
    if (!mayAct()) return;
    world_.dock.autoHide = enabled;
    world_.screensMayHaveChanged();
}

void SimCoreDock::setOrientationAndPinning(OrientationAndPinning value) {
    if (!mayAct()) return;
    world_.dock.place = value;
    world_.screensMayHaveChanged();
}

void SimCoreDock::setMagnificationEnabled(bool enabled) {
    if (!mayAct()) return;
    world_.dock.magnification = enabled;
}

} // namespace larkspan::sim
