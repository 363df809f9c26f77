#include "ui/parts/DesktopAppearance.h"

#include <QFile>
#include <QGuiApplication>
#include <QPalette>
#include <QSettings>

namespace larkspan::ui {

namespace {

bool hasDarkPalette() {
    const QPalette palette = QGuiApplication::palette();
    return palette.color(QPalette::WindowText).lightness() >
           palette.color(QPalette::Window).lightness();
}

bool isDarkTheme(const QString& name) {
    return name.endsWith("-dark", Qt::CaseInsensitive) ||
           name.endsWith(":dark", Qt::CaseInsensitive);
}

/// The file writes truth as 1 or as true.
bool isOn(const QSettings& settings, const char* key, bool otherwise) {
    const QString value = settings.value(key).toString().trimmed().toLower();
    return value.isEmpty() ? otherwise : value == "1" || value == "true";
}

} // namespace

QString desktopSettingsFile(const QString& configFolder) {
    return configFolder + "/gtk-3.0/settings.ini";
}

Appearance::Values desktopAppearance(const QString& configFolder) {
    Appearance::Values values{.isDark = hasDarkPalette()};
    if (configFolder.isEmpty()) return values;
    const QString file = desktopSettingsFile(configFolder);
    if (!QFile::exists(file)) return values;
    QSettings settings(file, QSettings::IniFormat);
    settings.beginGroup("Settings");
    values.isDark = values.isDark || isOn(settings, "gtk-application-prefer-dark-theme", false) ||
                    isDarkTheme(settings.value("gtk-theme-name").toString());
    values.increasesContrast =
        settings.value("gtk-theme-name").toString().startsWith("HighContrast");
    values.reducesMotion = !isOn(settings, "gtk-enable-animations", true);
    return values;
}

} // namespace larkspan::ui
