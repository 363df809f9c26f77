#include "ui/permissions/PermissionsScene.h"

namespace larkspan::ui {

PermissionsScene::PermissionsScene(PermissionsWindow& permissions, Appearance& appearance)
    : permissions_(permissions)
    , appearance_(appearance) {
    for (Observed<bool>* flag : {&permissions.hasAccessibility, &permissions.hasScreenRecording})
        observations_.push_back(flag->observe([this] { Q_EMIT changed(); }));
}

} // namespace larkspan::ui
