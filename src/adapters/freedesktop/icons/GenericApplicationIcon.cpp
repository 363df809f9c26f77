#include "adapters/freedesktop/icons/GenericApplicationIcon.h"

#include "adapters/qt/fitted.h"

#include <QLinearGradient>
#include <QPainter>

namespace larkspan::freedesktop {

namespace {

// A window with a title bar and two lines of text, on a grid of 64 units.
void draw(QPainter& painter) {
    QLinearGradient body(0, 6, 0, 58);
    body.setColorAt(0, QColor(0xf2, 0xf4, 0xf7));
    body.setColorAt(1, QColor(0xc9, 0xcf, 0xd8));
    painter.setPen(QPen(QColor(0, 0, 0, 40), 1));
    painter.setBrush(body);
    painter.drawRoundedRect(QRectF(6.5, 6.5, 51, 51), 12, 12);

    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x5b, 0x67, 0x78));
    painter.drawRoundedRect(QRectF(17, 18, 30, 28), 4, 4);
    painter.setBrush(QColor(0xf2, 0xf4, 0xf7));
    painter.drawRoundedRect(QRectF(19.5, 25, 25, 18.5), 2, 2);
    painter.setBrush(QColor(0x9a, 0xa5, 0xb4));
    painter.drawRoundedRect(QRectF(23, 29.5, 18, 3), 1.5, 1.5);
    painter.drawRoundedRect(QRectF(23, 35.5, 11, 3), 1.5, 1.5);
}

} // namespace

Bitmap GenericApplicationIcon::bitmap(int pixels) const {
    if (pixels <= 0) return {};
    QImage picture(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(pixels / 64.0, pixels / 64.0);
    draw(painter);
    painter.end();
    return qt::fitted(picture, pixels);
}

} // namespace larkspan::freedesktop
