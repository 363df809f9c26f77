#include "ui/parts/AppearanceWatch.h"

#include "ui/parts/DesktopAppearance.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFileInfo>

#include <utility>

namespace larkspan::ui {

AppearanceWatch::AppearanceWatch(Appearance& appearance, QString configFolder)
    : appearance_(appearance)
    , configFolder_(std::move(configFolder)) {
    connect(&watcher_, &QFileSystemWatcher::fileChanged, this, &AppearanceWatch::read);
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, this, &AppearanceWatch::read);
    QCoreApplication::instance()->installEventFilter(this);
    read();
}

bool AppearanceWatch::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && object == QCoreApplication::instance())
        read();
    return false;
}

/// Watched first, read then: a change between the two is seen twice rather than not at all.
void AppearanceWatch::read() {
    watch();
    appearance_.set(desktopAppearance(configFolder_));
}

/// The file itself for writes in place, its folder for a file that is put in its stead, and the
/// folder above as long as there is none. A watch ends with what it watches, so it is set again.
void AppearanceWatch::watch() {
    if (configFolder_.isEmpty()) return;
    const QString file = desktopSettingsFile(configFolder_);
    const QString folder = QFileInfo(file).path();
    const bool hasFolder = QFileInfo::exists(folder);
    if (hasFolder) watcher_.removePath(configFolder_);
    for (const QString& path : {file, folder, hasFolder ? QString() : configFolder_})
        if (!path.isEmpty() && QFileInfo::exists(path)) watcher_.addPath(path);
}

} // namespace larkspan::ui
