#pragma once

#include "adapters/sim/SimMac.h"

#include <QQuickPaintedItem>

#include <functional>

namespace larkspan::ui {

/// The simulated Mac as a person sees it, without the bar: wallpaper, menu bar and windows of every
/// display, side by side. Windows can be moved by their title bars, closed, minimised, made full
/// screen and brought forward. Lengths are points of the Mac. Main thread only.
class DemoDesktop : public QQuickPaintedItem {
    Q_OBJECT

  public:
    DemoDesktop(sim::SimMac& mac, QQuickItem* parent);

    void paint(QPainter* painter) override;
    /// All displays together.
    QSizeF extent() const;
    /// Called after the user did something to the Mac.
    std::function<void()> onUse;
    /// Called when the sign at the start of a menu bar is clicked, with its frame.
    std::function<void(const QRectF&)> onSystemMenu;
    /// Called when the status item is clicked, with its frame.
    std::function<void(const Menu&, const QRectF&)> onStatusItem;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void paintWindows(QPainter& painter, const sim::Display& display) const;
    void paintMenuBars(QPainter& painter, const sim::Display& display) const;
    const sim::Window* windowAt(QPointF point) const;
    bool pressMenuBar(QPointF point);
    void pressWindow(const sim::Window& window, QPointF point);
    void used();

    sim::SimMac& mac_;
    WindowId dragged_ = 0;
    QPointF grip_;
};

} // namespace larkspan::ui
