#pragma once

#include "app/PermissionsModel.h"
#include "ui/parts/Appearance.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace larkspan::ui {

/// Exposes the permissions to the view of the permissions window. Main thread only.
class PermissionsViewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the window")
    Q_PROPERTY(bool hasAccessibility READ hasAccessibility NOTIFY changed)
    Q_PROPERTY(bool hasScreenRecording READ hasScreenRecording NOTIFY changed)
    Q_PROPERTY(larkspan::ui::Appearance* appearance READ appearance CONSTANT)

  public:
    PermissionsViewModel(PermissionsModel& permissions, Appearance& appearance);

    bool hasAccessibility() const { return *permissions_.hasAccessibility; }
    bool hasScreenRecording() const { return *permissions_.hasScreenRecording; }
    Appearance* appearance() { return &appearance_; }

    Q_INVOKABLE void grantAccessibility() { permissions_.grantAccessibility(); }
    Q_INVOKABLE void grantScreenRecording() { permissions_.grantScreenRecording(); }
    Q_INVOKABLE void close() { permissions_.close(); }

  Q_SIGNALS:
    void changed();

  private:
    PermissionsModel& permissions_;
    Appearance& appearance_;
    std::vector<Handle> observations_;
};

} // namespace larkspan::ui
