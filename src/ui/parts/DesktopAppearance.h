#pragma once

#include "ui/parts/Appearance.h"

#include <QString>

namespace larkspan::ui {

/// The file in `configFolder` in which desktops of other toolkits keep their choices.
QString desktopSettingsFile(const QString& configFolder);

/// What the desktop's settings say now: the toolkit's palette, and where desktops of other
/// toolkits keep the same choice, the file gtk-3.0/settings.ini in `configFolder`.
Appearance::Values desktopAppearance(const QString& configFolder);

} // namespace larkspan::ui
