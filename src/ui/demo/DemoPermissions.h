#pragma once

#include "adapters/sim/SimMac.h"
#include "ui/parts/Views.h"
#include "ui/permissions/PermissionsViewModel.h"

#include <QQuickPaintedItem>

#include <memory>

namespace larkspan::ui {

/// The permissions window on the simulated desktop: the same view as on a real one, in a window
/// that the demo draws. It can be moved by its title bar and closed. Main thread only.
class DemoPermissions : public QQuickPaintedItem {
    Q_OBJECT

  public:
    DemoPermissions(const sim::SimMac& mac, PermissionsModel& permissions, Views& views,
                    Appearance& appearance, QQuickItem& desktop);
    ~DemoPermissions() override;

    void paint(QPainter* painter) override;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    void show();
    QRectF frame() const;

    const sim::SimMac& mac_;
    PermissionsModel& permissions_;
    Views& views_;
    PermissionsViewModel viewModel_;
    std::unique_ptr<QQuickItem> view_;
    QPointF grip_;
    Handle observation_;
};

} // namespace larkspan::ui
