#pragma once

#include "adapters/sim/SimMac.h"

#include <QQuickPaintedItem>

#include <functional>

namespace larkspan::ui {

/// What the simulated system shows about permissions: its question, and the pane of its settings
/// with a switch for each permission, over the main display. Main thread only.
class DemoPrivacy : public QQuickPaintedItem {
    Q_OBJECT

  public:
    DemoPrivacy(sim::SimMac& mac, QQuickItem& desktop);

    /// Reads the Mac's state again.
    void refresh();
    void paint(QPainter* painter) override;

    /// Called after the user did something to the Mac.
    std::function<void()> onUse;

  protected:
    void mousePressEvent(QMouseEvent* event) override;

  private:
    QRectF paneFrame() const;
    QRectF promptFrame() const;
    QRectF rowFrame(sim::Permission permission) const;
    bool isGranted(sim::Permission permission) const;
    void paintPane(QPainter& painter) const;
    void paintPrompt(QPainter& painter) const;
    bool pressPrompt(QPointF point);
    bool pressPane(QPointF point);

    sim::SimMac& mac_;
};

} // namespace larkspan::ui
