#pragma once

#include "ui/parts/Views.h"
#include "ui/permissions/PermissionsViewModel.h"

#include <QObject>
#include <QQuickWindow>

#include <memory>

namespace larkspan::ui {

/// The permissions window on the desktop. Created when it is first shown, and then kept; closing it
/// hides it. Main thread only.
class PermissionsWindow final : public QObject {
    Q_OBJECT

  public:
    PermissionsWindow(PermissionsModel& permissions, Views& views, Appearance& appearance);
    ~PermissionsWindow() override;

    /// nullptr until it is first shown.
    QQuickWindow* window() { return window_.get(); }

    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void update();
    void makeWindow();

    PermissionsModel& permissions_;
    Views& views_;
    PermissionsViewModel viewModel_;
    std::unique_ptr<QQuickWindow> window_;
    std::unique_ptr<QQuickItem> view_;
    Handle observation_;
};

} // namespace larkspan::ui
