#include "ui/permissions/PermissionsViewModel.h"

namespace larkspan::ui {

PermissionsViewModel::PermissionsViewModel(PermissionsModel& permissions, Appearance& appearance)
    : permissions_(permissions)
    , appearance_(appearance) {
    for (Observed<bool>* flag : {&permissions.hasAccessibility, &permissions.hasScreenRecording})
        observations_.push_back(flag->observe([this] { Q_EMIT changed(); }));
}

} // namespace larkspan::ui
