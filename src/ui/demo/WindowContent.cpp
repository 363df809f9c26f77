#include "ui/demo/WindowContent.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainterPath>

#include <algorithm>

namespace larkspan::ui {

namespace {

/// Widths of lines of text, as parts of the room they have.
constexpr double lineWidths[] = {0.92, 0.78, 0.85, 0.6, 0.95, 0.7, 0.88, 0.4};

void paintLines(QPainter& painter, const QRectF& area, double pitch, const QColor& color) {
    int line = 0;
    for (double y = area.top(); y + 8 < area.bottom(); y += pitch, ++line) {
        QPainterPath path;
        path.addRoundedRect(area.left(), y, area.width() * lineWidths[line % 8], 7, 3.5, 3.5);
        painter.fillPath(path, color);
    }
}

void paintPage(QPainter& painter, const QRectF& area) {
    painter.fillRect(area, Qt::white);
    QPainterPath heading;
    heading.addRoundedRect(area.left() + 28, area.top() + 26, area.width() * 0.36, 14, 7, 7);
    painter.fillPath(heading, QColor(54, 58, 74));
    paintLines(painter, area.adjusted(28, 62, -28, -20), 20, QColor(214, 217, 226));
}

void paintList(QPainter& painter, const QRectF& area) {
    painter.fillRect(area, Qt::white);
    const double side = std::min(210.0, area.width() * 0.34);
    painter.fillRect(QRectF(area.topLeft(), QSizeF(side, area.height())), QColor(240, 241, 246));
    for (int row = 0; 12 + row * 52.0 + 44 < area.height(); ++row) {
        const QRectF cell(area.left() + 10, area.top() + 12 + row * 52.0, side - 20, 44);
        QPainterPath path;
        path.addRoundedRect(cell, 8, 8);
        if (row == 0) painter.fillPath(path, QColor(62, 122, 246));
        paintLines(painter, cell.adjusted(12, 11, -12, 0), 15,
                   row == 0 ? QColor(255, 255, 255, 190) : QColor(198, 202, 214));
    }
    paintLines(painter, area.adjusted(side + 26, 28, -28, -20), 20, QColor(218, 221, 230));
}

void paintTerminal(QPainter& painter, const QRectF& area) {
    painter.fillRect(area, QColor(24, 26, 34));
    QFont font(QStringLiteral("monospace"));
    font.setPixelSize(13);
    painter.setFont(font);
    const char* lines[] = {"me@mac ~ % larkspan state", "{", "  \"mode\": \"vantrel\",",
                           "  \"trashEmpty\": true",    "}", "me@mac ~ % "};
    double y = area.top() + 26;
    for (const char* line : lines) {
        painter.setPen(line[0] == 'm' ? QColor(126, 231, 135) : QColor(214, 220, 232));
        painter.drawText(QPointF(area.left() + 16, y), QString::fromLatin1(line));
        y += 20;
    }
}

/// Tiles in rainbow order, as covers or photographs.
void paintGrid(QPainter& painter, const QRectF& area, bool isDark) {
    painter.fillRect(area, isDark ? QColor(28, 26, 36) : QColor(250, 250, 252));
    const int columns = std::max(2, static_cast<int>(area.width() / 150));
    const double size = (area.width() - 20.0 * (columns + 1)) / columns;
    int cell = 0;
    for (double y = area.top() + 20; y < area.bottom(); y += size + 20) {
        for (int column = 0; column < columns; ++column, ++cell) {
            const QRectF tile(area.left() + 20 + column * (size + 20), y, size, size);
            QLinearGradient fill(tile.topLeft(), tile.bottomRight());
            const int hue = (cell * 47 + 200) % 360;
            fill.setColorAt(0, QColor::fromHsv(hue, 150, 245));
            fill.setColorAt(1, QColor::fromHsv((hue + 40) % 360, 190, 190));
            QPainterPath path;
            path.addRoundedRect(tile, 10, 10);
            painter.fillPath(path, fill);
        }
    }
}

void paintBrowser(QPainter& painter, const QRectF& area) {
    painter.fillRect(area, Qt::white);
    const QRectF bar(area.left(), area.top(), area.width(), 40);
    painter.fillRect(bar, QColor(246, 246, 249));
    QPainterPath field;
    field.addRoundedRect(bar.adjusted(area.width() * 0.2, 8, -area.width() * 0.2, -8), 8, 8);
    painter.fillPath(field, QColor(230, 231, 237));
    const QRectF picture(area.left() + 28, area.top() + 64, area.width() - 56,
                         std::max(0.0, area.height() * 0.4));
    QLinearGradient fill(picture.topLeft(), picture.bottomRight());
    fill.setColorAt(0, QColor(92, 142, 246));
    fill.setColorAt(1, QColor(172, 114, 236));
    QPainterPath path;
    path.addRoundedRect(picture, 12, 12);
    painter.fillPath(path, fill);
    paintLines(painter,
               QRectF(picture.left(), picture.bottom() + 24, picture.width(),
                      area.bottom() - picture.bottom() - 40),
               20, QColor(216, 219, 228));
}

} // namespace

void paintContent(QPainter& painter, const QRectF& area, const QString& app) {
    const auto is = [&app](const char* word) { return app.contains(QLatin1String(word)); };
    if (is("terminal"))
        paintTerminal(painter, area);
    else if (is("browser") || is("maps"))
        paintBrowser(painter, area);
    else if (is("photos") || is("finder"))
        paintGrid(painter, area, false);
    else if (is("music"))
        paintGrid(painter, area, true);
    else if (is("mail") || is("messages") || is("settings"))
        paintList(painter, area);
    else
        paintPage(painter, area);
}

} // namespace larkspan::ui
