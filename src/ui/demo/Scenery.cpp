#include "ui/demo/Scenery.h"

#include "ui/demo/WindowContent.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainterPath>
#include <QRadialGradient>

#include <array>
#include <cmath>

namespace larkspan::ui {

namespace {

class Saved {
  public:
    explicit Saved(QPainter& painter)
        : painter_(painter) {
        painter_.save();
        painter_.setRenderHint(QPainter::Antialiasing);
    }
    ~Saved() { painter_.restore(); }
    Saved(const Saved&) = delete;
    Saved& operator=(const Saved&) = delete;

  private:
    QPainter& painter_;
};

/// A hill whose ridge is a slow wave.
void paintHill(QPainter& painter, const QRectF& area, double ridge, double swing, double phase,
               const QColor& top, const QColor& bottom) {
    QPainterPath hill;
    const double y = area.top() + area.height() * ridge;
    hill.moveTo(area.left(), area.bottom());
    constexpr int steps = 48;
    for (int step = 0; step <= steps; ++step) {
        const double part = static_cast<double>(step) / steps;
        const double wave = std::sin(part * 4.2 + phase) + 0.4 * std::sin(part * 9.1 + 2 * phase);
        hill.lineTo(area.left() + part * area.width(), y + swing * area.height() * wave);
    }
    hill.lineTo(area.right(), area.bottom());
    QLinearGradient fill(0, y - swing * area.height(), 0, area.bottom());
    fill.setColorAt(0, top);
    fill.setColorAt(1, bottom);
    painter.fillPath(hill, fill);
}

} // namespace

QFont sceneryFont(int pixels, QFont::Weight weight) {
    QFont font;
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

void paintShadow(QPainter& painter, const QRectF& frame, bool isFront) {
    const Saved saved(painter);
    const int reach = isFront ? 22 : 12;
    for (int ring = reach; ring > 0; ring -= 2) {
        QPainterPath path;
        path.addRoundedRect(frame.adjusted(-ring, -ring + 8, ring, ring + 8), 12 + ring, 12 + ring);
        painter.fillPath(path, QColor(10, 12, 30, isFront ? 7 : 6));
    }
}

void paintWallpaper(QPainter& painter, const QRectF& display) {
    const Saved saved(painter);
    painter.setClipRect(display);
    QLinearGradient sky(display.topLeft(), display.bottomLeft());
    sky.setColorAt(0, QColor(38, 52, 112));
    sky.setColorAt(0.38, QColor(128, 104, 168));
    sky.setColorAt(0.62, QColor(240, 158, 146));
    sky.setColorAt(1, QColor(255, 214, 165));
    painter.fillRect(display, sky);
    const QPointF sun(display.left() + display.width() * 0.68,
                      display.top() + display.height() * 0.5);
    QRadialGradient glow(sun, display.height() * 0.5);
    glow.setColorAt(0, QColor(255, 244, 214, 230));
    glow.setColorAt(0.12, QColor(255, 226, 178, 150));
    glow.setColorAt(1, QColor(255, 200, 160, 0));
    painter.fillRect(display, glow);
    paintHill(painter, display, 0.60, 0.030, 0.6, QColor(150, 104, 152), QColor(196, 128, 150));
    paintHill(painter, display, 0.69, 0.040, 2.3, QColor(98, 76, 138), QColor(142, 92, 140));
    paintHill(painter, display, 0.79, 0.034, 4.1, QColor(58, 54, 112), QColor(84, 66, 122));
    paintHill(painter, display, 0.89, 0.028, 5.4, QColor(30, 36, 84), QColor(38, 38, 86));
}

QRectF systemMenuFrame(const QRectF& bar) {
    return {bar.left() + 8, bar.top(), 24, bar.height()};
}

QRectF statusItemFrame(const QRectF& bar) {
    return {bar.right() - 128, bar.top(), 26, bar.height()};
}

void paintMenuBar(QPainter& painter, const QRectF& bar, const QString& appName,
                  const QString& clock, bool hasStatusItem) {
    const Saved saved(painter);
    painter.fillRect(bar, QColor(255, 255, 255, 58));
    painter.setPen(Qt::white);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(bar.left() + 20, bar.center().y()), 5.5, 5.5);
    double x = bar.left() + 40;
    bool isFirst = true;
    for (const QString& word : {appName, QStringLiteral("File"), QStringLiteral("Edit"),
                                QStringLiteral("View"), QStringLiteral("Window")}) {
        painter.setFont(sceneryFont(13, isFirst ? QFont::Bold : QFont::Normal));
        isFirst = false;
        const double width = painter.fontMetrics().horizontalAdvance(word);
        painter.drawText(QRectF(x, bar.top(), width + 2, bar.height()), Qt::AlignVCenter, word);
        x += width + 20;
    }
    painter.setFont(sceneryFont(13, QFont::Medium));
    painter.drawText(bar.adjusted(0, 0, -16, 0), Qt::AlignVCenter | Qt::AlignRight, clock);
    if (!hasStatusItem) return;
    const QRectF icon = QRectF(0, 0, 17, 12);
    const QPointF corner = statusItemFrame(bar).center() - icon.center();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 1.4));
    painter.drawRoundedRect(icon.translated(corner), 3, 3);
    painter.fillRect(QRectF(corner.x() + 3, corner.y() + 7.5, 11, 2), Qt::white);
}

QRectF windowButton(const QRectF& frame, int index) {
    return {frame.left() + 12 + 20 * index, frame.top() + 9, 12, 12};
}

void paintWindow(QPainter& painter, const WindowPicture& window) {
    const Saved saved(painter);
    const QRectF& frame = window.frame;
    const double radius = window.isFullScreen ? 0 : windowCornerRadius;
    if (!window.isFullScreen) paintShadow(painter, frame, window.isFront);
    QPainterPath outline;
    outline.addRoundedRect(frame, radius, radius);
    painter.save();
    painter.setClipPath(outline);
    if (window.background.isValid())
        painter.fillRect(frame, window.background);
    else
        paintContent(painter, frame.adjusted(0, titleBarHeight, 0, 0), window.app);
    const QRectF bar(frame.topLeft(), QSizeF(frame.width(), titleBarHeight));
    painter.fillRect(bar, window.isFront ? QColor(236, 236, 240) : QColor(246, 246, 248));
    painter.fillRect(QRectF(bar.left(), bar.bottom() - 1, bar.width(), 1), QColor(0, 0, 0, 26));
    painter.restore();
    const std::array<QColor, 3> colors{QColor(255, 95, 87), QColor(254, 188, 46),
                                       QColor(40, 200, 64)};
    painter.setPen(Qt::NoPen);
    for (int index = 0; index < 3; ++index) {
        painter.setBrush(window.isFront ? colors[static_cast<std::size_t>(index)]
                                        : QColor(205, 205, 210));
        painter.drawEllipse(windowButton(frame, index));
    }
    painter.setFont(sceneryFont(13, QFont::DemiBold));
    painter.setPen(QColor(40, 42, 50, window.isFront ? 255 : 130));
    painter.drawText(bar.adjusted(76, 0, -76, 0), Qt::AlignCenter,
                     painter.fontMetrics().elidedText(window.title, Qt::ElideRight,
                                                      static_cast<int>(bar.width() - 152)));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(0, 0, 0, 46), 1));
    painter.drawPath(outline);
}

} // namespace larkspan::ui
