#pragma once

#include "ui/parts/Views.h"
#include "ui/permissions/PermissionsScene.h"

#include <QObject>
#include <QQuickWindow>

#include <memory>

namespace larkspan::ui {

/// The permissions window on the desktop. Made when it is first to be shown and kept from then on;
/// closing it hides it. Main thread only.
class PermissionsPanel final : public QObject {
    Q_OBJECT

  public:
    PermissionsPanel(PermissionsWindow& permissions, Views& views, Appearance& appearance);
    ~PermissionsPanel() override;

    /// Nullptr until it is first shown.
    QQuickWindow* window() { return window_.get(); }

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void update();
    void makeWindow();

    PermissionsWindow& permissions_;
    Views& views_;
    PermissionsScene scene_;
    std::unique_ptr<QQuickWindow> window_;
    std::unique_ptr<QQuickItem> view_;
    Handle observation_;
};

} // namespace larkspan::ui
