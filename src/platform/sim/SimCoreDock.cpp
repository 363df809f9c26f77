#include "platform/sim/SimCoreDock.h"

namespace larkspan::sim {

void SimCoreDock::setTileSize(float fraction) {
    ++setCalls_;
    world_.dock.tileSize = fraction;
    world_.screensMayHaveChanged();
}

void SimCoreDock::setAutoHideEnabled(bool enabled) {
    ++setCalls_;
    world_.dock.autoHide = enabled;
    world_.screensMayHaveChanged();
}

void SimCoreDock::setOrientationAndPinning(OrientationAndPinning value) {
    ++setCalls_;
    world_.dock.place = value;
    world_.screensMayHaveChanged();
}

void SimCoreDock::setMagnificationEnabled(bool enabled) {
    ++setCalls_;
    world_.dock.magnification = enabled;
}

} // namespace larkspan::sim
