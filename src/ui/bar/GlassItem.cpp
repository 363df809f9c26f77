#include "ui/bar/GlassItem.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace larkspan::ui {

GlassItem::GlassItem(QQuickItem* parent)
    : QQuickPaintedItem(parent) {
    setAntialiasing(true);
    connect(this, &GlassItem::changed, this, [this] { update(); });
}

void GlassItem::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickPaintedItem::geometryChange(newGeometry, oldGeometry);
    // What shows through is fixed to the screen, so a pane that moves looks different.
    if (newGeometry.topLeft() != oldGeometry.topLeft()) update();
}

QRectF GlassItem::pane() const {
    return QRectF(margin_, 0, std::max(0.0, width() - 2 * margin_),
                  std::max(0.0, height() - margin_));
}

void GlassItem::paint(QPainter* painter) {
    painter->setPen(Qt::NoPen);
    if (!surroundings_.isNull()) painter->fillRect(boundingRect(), brushOf(surroundings_));
    if (margin_ > 0) paintShadow(*painter);
    paintFill(*painter);
    paintEdges(*painter);
}

/// The picture, lying still behind the window while the pane moves over it.
QBrush GlassItem::brushOf(const QImage& picture) const {
    QBrush brush(picture);
    const QPointF origin = mapToScene(QPointF());
    const double ratio = picture.devicePixelRatio();
    QTransform transform = QTransform::fromTranslate(-origin.x(), -origin.y());
    transform.scale(1 / ratio, 1 / ratio);
    brush.setTransform(transform);
    return brush;
}

QColor GlassItem::tint() const {
    QColor color = isDark_ ? QColor(26, 28, 34) : QColor(246, 248, 252);
    if (isOpaque_) return color;
    const bool hasBackdrop = !backdrop_.isNull();
    // Without a blur behind it the glass must be thicker for the icons to stand out.
    const double clear = hasBackdrop ? 0.34 : 0.58;
    const double frosted = hasBackdrop ? 0.62 : 0.82;
    color.setAlphaF(static_cast<float>(isFrosted_ ? frosted : clear));
    return color;
}

void GlassItem::paintShadow(QPainter& painter) const {
    const int steps = static_cast<int>(margin_);
    painter.setBrush(QColor(0, 0, 0, isDark_ ? 22 : 14));
    // One translucent pane on another: each a point smaller, so that they add up towards the glass.
    for (int i = 0; i < steps; ++i) {
        const double spread = steps - i - 0.5;
        const QRectF area = pane().adjusted(-spread * 0.8, 2, spread * 0.8, spread);
        painter.drawRoundedRect(area, radius_ + spread, radius_ + spread);
    }
}

void GlassItem::paintFill(QPainter& painter) const {
    const double radius = isBand_ || fillsCorners_ ? 0 : radius_;
    const QRectF area = pane();
    if (!backdrop_.isNull() && !isOpaque_) {
        painter.setBrush(brushOf(backdrop_));
        painter.drawRoundedRect(area, radius, radius);
    } else if (surroundings_.isNull() && !isOpaque_ && !fillsCorners_) {
        // The shadow beneath must not show through translucent glass.
        painter.setCompositionMode(QPainter::CompositionMode_Clear);
        painter.setBrush(Qt::black);
        painter.drawRoundedRect(area, radius, radius);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    painter.setBrush(tint());
    painter.drawRoundedRect(area, radius, radius);
    QLinearGradient sheen(area.topLeft(), area.bottomLeft());
    const int strength = isDark_ ? 22 : 110;
    sheen.setColorAt(0, QColor(255, 255, 255, strength));
    sheen.setColorAt(0.5, QColor(255, 255, 255, strength / 5));
    sheen.setColorAt(1, QColor(255, 255, 255, strength / 3));
    painter.setBrush(sheen);
    painter.drawRoundedRect(area, radius, radius);
}

void GlassItem::paintEdges(QPainter& painter) const {
    const QRectF area = pane();
    const QColor outer = isDark_ ? QColor(0, 0, 0, hasStrongEdges_ ? 255 : 130)
                                 : QColor(20, 26, 40, hasStrongEdges_ ? 220 : 46);
    const QColor light(255, 255, 255, isDark_ ? (hasStrongEdges_ ? 200 : 62) : 190);
    painter.setBrush(Qt::NoBrush);
    if (isBand_) {
        painter.fillRect(QRectF(area.left(), area.top(), area.width(), 1), outer);
        painter.fillRect(QRectF(area.left(), area.top() + 1, area.width(), 1), light);
        return;
    }
    QLinearGradient rim(area.topLeft(), area.bottomLeft());
    rim.setColorAt(0, light);
    QColor faint = light;
    faint.setAlpha(light.alpha() / 4);
    rim.setColorAt(0.55, faint);
    rim.setColorAt(1, QColor(255, 255, 255, light.alpha() / 2));
    painter.setPen(QPen(QBrush(rim), 1));
    painter.drawRoundedRect(area.adjusted(1.5, 1.5, -1.5, -1.5), radius_ - 1.5, radius_ - 1.5);
    painter.setPen(QPen(outer, 1));
    painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), radius_ - 0.5, radius_ - 0.5);
}

} // namespace larkspan::ui
