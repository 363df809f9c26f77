#pragma once

#include "ui/Appearance.h"

#include <QString>

namespace larkspan::ui {

/// What the desktop's settings say, read once: the toolkit's palette, and where desktops of other
/// toolkits keep the same choice, the file gtk-3.0/settings.ini in `configFolder`.
Appearance::Values desktopAppearance(const QString& configFolder);

} // namespace larkspan::ui
