#pragma once

#include "ui/parts/Appearance.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>

namespace larkspan::ui {

/// Keeps the appearance at what the desktop's settings say, from the first moment on: follows the
/// settings file in `configFolder` (see `desktopAppearance`), where that is not empty, and the
/// toolkit's palette. Nothing wakes while neither changes. Main thread only.
class AppearanceWatch : public QObject {
    Q_OBJECT

  public:
    AppearanceWatch(Appearance& appearance, QString configFolder);

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void read();
    void watch();

    Appearance& appearance_;
    QString configFolder_;
    QFileSystemWatcher watcher_;
};

} // namespace larkspan::ui
