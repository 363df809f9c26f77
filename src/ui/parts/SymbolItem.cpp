#include "ui/parts/SymbolItem.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace larkspan::ui {

namespace {

// Drawn on a disc of radius 1 around the origin.

void drawCheckmark(QPainter& painter) {
    painter.setPen(QPen(Qt::white, 0.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF({{-0.42, 0.05}, {-0.12, 0.38}, {0.42, -0.36}}));
}

void drawExclamationMark(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    QPainterPath stroke;
    stroke.moveTo(-0.125, -0.53);
    stroke.quadTo(0, -0.66, 0.125, -0.53);
    stroke.lineTo(0.085, 0.13);
    stroke.quadTo(0, 0.21, -0.085, 0.13);
    stroke.closeSubpath();
    painter.drawPath(stroke);
    painter.drawEllipse(QPointF(0, 0.46), 0.135, 0.135);
}

} // namespace

SymbolItem::SymbolItem(QQuickItem* parent)
    : QQuickPaintedItem(parent) {
    connect(this, &SymbolItem::changed, this, [this] { update(); });
}

void SymbolItem::paint(QPainter* painter) {
    const bool isCheckmark = symbol_ == QLatin1String("checkmark.circle.fill");
    if (!isCheckmark && symbol_ != QLatin1String("exclamationmark.circle.fill")) return;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(boundingRect().center());
    const double radius = std::min(width(), height()) / 2;
    painter->scale(radius, radius);
    painter->setPen(Qt::NoPen);
    painter->setBrush(color_);
    painter->drawEllipse(QPointF(), 1, 1);
    if (isCheckmark)
        drawCheckmark(*painter);
    else
        drawExclamationMark(*painter);
}

} // namespace larkspan::ui
