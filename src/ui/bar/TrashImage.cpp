#include "ui/bar/TrashImage.h"

#include "ui/parts/Pictures.h"

#include <QPainter>
#include <QPainterPath>

namespace larkspan::ui {

namespace {

// Drawn on a square of 64 units.

QPainterPath body() {
    QPainterPath path;
    path.moveTo(15, 17);
    path.lineTo(49, 17);
    path.lineTo(45.4, 53);
    path.quadTo(45, 57, 41, 57);
    path.lineTo(23, 57);
    path.quadTo(19, 57, 18.6, 53);
    path.closeSubpath();
    return path;
}

void drawPaper(QPainter& painter) {
    painter.setPen(QPen(QColor(120, 128, 140, 120), 0.7));
    painter.setBrush(QColor(255, 255, 255, 245));
    painter.drawPolygon(QPolygonF(
        {{17, 16}, {20, 8}, {27, 5}, {32, 10}, {38, 4}, {45, 8}, {47, 16}, {44, 26}, {20, 26}}));
    painter.setPen(QPen(QColor(150, 158, 170, 150), 1));
    painter.drawPolyline(QPolygonF({{21, 13}, {27, 12}, {30, 18}}));
    painter.drawPolyline(QPolygonF({{33, 15}, {39, 10}, {43, 15}}));
}

void drawBody(QPainter& painter) {
    QLinearGradient fill(15, 0, 49, 0);
    fill.setColorAt(0, QColor(214, 220, 228, 235));
    fill.setColorAt(0.35, QColor(250, 252, 255, 240));
    fill.setColorAt(1, QColor(186, 194, 206, 235));
    painter.setPen(QPen(QColor(98, 108, 124, 200), 1));
    painter.setBrush(fill);
    painter.drawPath(body());
    painter.setPen(QPen(QColor(110, 120, 138, 130), 1.8, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(25, 26), QPointF(26.4, 50));
    painter.drawLine(QPointF(32, 26), QPointF(32, 50));
    painter.drawLine(QPointF(39, 26), QPointF(37.6, 50));
}

void drawRim(QPainter& painter) {
    QLinearGradient fill(0, 14, 0, 20);
    fill.setColorAt(0, QColor(255, 255, 255, 250));
    fill.setColorAt(1, QColor(196, 204, 214, 250));
    painter.setPen(QPen(QColor(98, 108, 124, 200), 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(12.5, 14, 39, 5.5), 2.75, 2.75);
}

} // namespace

TrashImage::TrashImage(bool isEmpty)
    : isEmpty_(isEmpty)
    , identity_(isEmpty ? "larkspan trash empty" : "larkspan trash full") {}

Bitmap TrashImage::bitmap(int pixels) const {
    QImage picture(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixels / 58.0, pixels / 58.0);
    painter.translate(-3, -3.5);
    if (!isEmpty_) drawPaper(painter);
    drawBody(painter);
    drawRim(painter);
    painter.end();
    return bitmapOf(picture);
}

} // namespace larkspan::ui
